#include "data/clsThreadFileReader.h"

#include <algorithm>
#include <string>
#include <vector>

#include "data/clsBinaryReader.h"

namespace {

/// Pieces of this size stay in the processor's cache between reading and cutting.
constexpr size_t kPieceByte = 655360;

}  // namespace

BodyReport_cls ThreadFileReader_cls::ReadBinaryBody() const {
    const BinaryReader_cls reader(mLoader);
    BodyReport_cls report;
    if (reader.GetRecordByte() == 0) return report;

    std::vector<char> piece(std::max<size_t>(kPieceByte / reader.GetRecordByte(), 1) *
                            reader.GetRecordByte());
    uint64_t position = mLoader.GetHeaderByte();
    while (report.mRecords < mTarget.mCount) {
        const size_t got = mFile.ReadAt(position, piece.data(), piece.size());
        const BodyReport_cls part = reader.Read({piece.data(), got}, report.mRecords, mTarget);
        if (part.mRecords == 0) break;
        report.mRecords += part.mRecords;
        report.mBadRecords += part.mBadRecords;
        position += got;
    }
    return report;
}

BodyReport_cls ThreadFileReader_cls::ReadAsciiBody() const {
    const std::string text = mFile.ReadRest(0);
    const std::string_view body = AsciiReader_cls::SkipLines(text, mLoader.GetHeaderLine());
    return AsciiReader_cls(mLoader).Read(body, 0, mTarget);
}
