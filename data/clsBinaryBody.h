#pragma once

#include <atomic>
#include <span>

#include "data/clsBinaryReader.h"
#include "data/clsBodyProgress.h"
#include "data/clsParticleAdjuster.h"
#include "seam/clsInputFile.h"

/// The body of one binary snapshot file while it is read. The file is cut into pieces that stay in the
/// processor's cache from reading to cutting. The reader and its ThreadReadBuffer_cls take piece after piece,
/// each into a buffer of its own: while one waits for the disk the other cuts, fresh memory is touched by
/// both, and neither ever waits for the other.
/// Threads: ReadPieces() from several at a time. Everything it is made of must outlive it.
/// Failure: a file that ends early or cannot be read on ends the records at that place.
class BinaryBody_cls {
  public:
    /// The body begins at the byte `start` of the file.
    BinaryBody_cls(const InputFile_cls& file, uint64_t start, const BinaryReader_cls& reader,
                   const ParticleAdjuster_cls& adjuster, const ParticleTarget_cls& target,
                   BodyProgress_cls& progress);

    int GetPieceCount() const { return mPieceCount; }
    /// Size of the buffer that ReadPieces() needs.
    size_t GetPieceByte() const { return static_cast<size_t>(mPieceRecords) * mReader.GetRecordByte(); }

    /// Takes pieces until none is left. The records of the report are those before the first gap that this
    /// thread met.
    BodyReport_cls ReadPieces(std::span<char> buffer);
    /// What two threads found together.
    static BodyReport_cls Join(const BodyReport_cls& one, const BodyReport_cls& other);

  private:
    const InputFile_cls& mFile;
    const uint64_t mStart;
    const BinaryReader_cls& mReader;
    const ParticleAdjuster_cls& mAdjuster;
    const ParticleTarget_cls mTarget;
    BodyProgress_cls& mProgress;
    int mPieceRecords;
    int mPieceCount;
    std::atomic<int> mNextPiece{0};
};
