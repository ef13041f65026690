#pragma once

#include <array>
#include <atomic>
#include <string_view>
#include <vector>

#include "data/clsAsciiReader.h"
#include "data/clsBodyProgress.h"
#include "data/clsLinePieces.h"
#include "data/clsParticleAdjuster.h"

/// The body of one text snapshot file while it is read. One thread reads the file piece by piece and counts
/// the records of each, which tells where they belong; the others parse the pieces meanwhile. The pieces go
/// round in a ring, so that a file of any size takes little memory, and the disk and the parsers work at the
/// same time. What is stored does not depend on the number of parsers.
/// Threads: ReadPieces() by one, ParsePieces() by any number at the same time.
/// Everything it is made of must outlive it.
class TextBody_cls {
  public:
    TextBody_cls(LinePieces_cls& lines, const AsciiReader_cls& reader, const ParticleAdjuster_cls& adjuster,
                 const ParticleTarget_cls& target, BodyProgress_cls& progress)
        : mLines(lines), mReader(reader), mAdjuster(adjuster), mTarget(target), mProgress(progress) {}

    /// Reads until the file ends or has given all particles. Parses a piece itself whenever the ring is full
    /// and at the end, so that it needs no help to finish. Returns the records found; the parsers may still
    /// be at the last pieces then. Throws std::bad_alloc; the parsers end then too.
    int ReadPieces();
    /// Parses pieces until all are read and taken.
    void ParsePieces();
    /// Bad records of all pieces, when all threads are done.
    int GetBadRecords() const { return mBadRecords.load(std::memory_order_relaxed); }

  private:
    struct Piece {
        std::vector<char> bytes;
        std::string_view lines;
        int first = 0;
        int records = 0;
        std::atomic<bool> isFree{true};
    };
    static constexpr int kPieces = 16;

    Piece& PlaceOf(int number) { return mRing[static_cast<size_t>(number % kPieces)]; }
    int ReadAllPieces();
    bool ParseNextPiece();

    LinePieces_cls& mLines;
    const AsciiReader_cls& mReader;
    const ParticleAdjuster_cls& mAdjuster;
    const ParticleTarget_cls mTarget;
    BodyProgress_cls& mProgress;
    std::array<Piece, kPieces> mRing;
    std::atomic<int> mRead{0};   ///< pieces handed over so far
    std::atomic<int> mTaken{0};  ///< of these, pieces that a thread has taken to parse
    std::atomic<bool> mIsAllRead{false};
    std::atomic<int> mBadRecords{0};
};
