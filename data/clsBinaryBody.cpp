#include "data/clsBinaryBody.h"

#include <algorithm>

namespace {

/// A piece of this size is still in the cache when it is cut.
constexpr size_t kPieceByte = 655360;

}  // namespace

BinaryBody_cls::BinaryBody_cls(const InputFile_cls& file, uint64_t start, const BinaryReader_cls& reader,
                               const ParticleAdjuster_cls& adjuster, const ParticleTarget_cls& target,
                               BodyProgress_cls& progress)
    : mFile(file),
      mStart(start),
      mReader(reader),
      mAdjuster(adjuster),
      mTarget(target),
      mProgress(progress),
      mPieceRecords(static_cast<int>(kPieceByte / std::max<size_t>(reader.GetRecordByte(), 1))),
      mPieceCount(target.mCount > 0 ? (target.mCount - 1) / mPieceRecords + 1 : 0) {}

BodyReport_cls BinaryBody_cls::ReadPieces(std::span<char> buffer) {
    BodyReport_cls report;
    report.mRecords = mTarget.mCount;
    for (;;) {
        const int piece = mNextPiece.fetch_add(1, std::memory_order_relaxed);
        if (piece >= mPieceCount) return report;
        const int first = piece * mPieceRecords;
        if (GbThreadReaderAbandoned.load(std::memory_order_relaxed)) {
            report.mRecords = first;
            return report;
        }
        const int wanted = std::min(mPieceRecords, mTarget.mCount - first);
        const size_t recordByte = mReader.GetRecordByte();
        const size_t got = mFile.ReadAt(mStart + static_cast<uint64_t>(first) * recordByte, buffer.data(),
                                        static_cast<size_t>(wanted) * recordByte, &report.mFailure);
        const BodyReport_cls part = mReader.Read(buffer.first(got), first, mTarget);
        mAdjuster.DoAdjusting(mTarget, first, part.mRecords);
        report.mBadRecords += part.mBadRecords;
        mProgress.Add(part.mRecords);
        if (part.mRecords == wanted) continue;
        report.mRecords = first + part.mRecords;
        return report;
    }
}

BodyReport_cls BinaryBody_cls::Join(const BodyReport_cls& one, const BodyReport_cls& other) {
    const int records = std::min(one.mRecords, other.mRecords);
    return {.mRecords = records,
            .mBadRecords = std::min(one.mBadRecords + other.mBadRecords, records),
            .mFailure = one.mFailure.empty() ? other.mFailure : one.mFailure};
}
