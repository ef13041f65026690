#include "data/clsBinaryPreview.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "data/clsLayoutHint.h"
#include "data/clsLoadNumber.h"
#include "data/clsParticleTarget.h"
#include "data/clsSnapshotHeader.h"

namespace {

using Cell = RecordPreview_cls::Cell;
using Bytes = unsigned long long;

constexpr size_t kUnit = 4;
/// Beyond these a real in a file is hardly one: whole numbers and text look so when they are taken for reals.
constexpr float kHardlyLarger = 1e30F;
constexpr float kHardlySmaller = 1e-30F;

bool IsLikely(float value) {
    const float size = std::abs(value);
    return value == 0.0F || (size < kHardlyLarger && size > kHardlySmaller);
}

Cell RealCell(float value) {
    return {wxString::Format("%g", static_cast<double>(value)), std::isfinite(value)};
}

/// What is skipped is shown as what it probably is.
Cell DummyCell(const char* bytes) {
    const auto real = LoadNumber<float>(bytes);
    if (std::isfinite(real) && IsLikely(real)) return RealCell(real);
    return {wxString::Format("%d", LoadNumber<int32_t>(bytes))};
}

Cell TypeCell(int32_t number) {
    const int stored = ParticleTarget_cls::ClampType(number);
    return {stored == number ? wxString::Format("%d", number)
                             : wxString::Format("%d (from %d)", stored, number)};
}

std::vector<Cell> DecodeRecord(const char* bytes, const GrammerBase_cls& grammer) {
    std::vector<Cell> cells;
    for (const int code : grammer.GetBodyGrammer()) {
        for (unsigned int i = 0; i < GrammerBase_cls::BodyUnits(code); ++i, bytes += kUnit) {
            switch (code) {
                case GrammerBase_cls::kID:
                    cells.push_back({wxString::Format("%d", LoadNumber<int32_t>(bytes))});
                    break;
                case GrammerBase_cls::kType:
                    cells.push_back(TypeCell(LoadNumber<int32_t>(bytes)));
                    break;
                case GrammerBase_cls::kDummy:
                case GrammerBase_cls::kDummy3:
                case GrammerBase_cls::kDummy10:
                    cells.push_back(DummyCell(bytes));
                    break;
                default:
                    cells.push_back(RealCell(LoadNumber<float>(bytes)));
            }
        }
    }
    return cells;
}

bool IsReal(int code) {
    using Grammer = GrammerBase_cls;
    return code == Grammer::kXYZ || code == Grammer::kVelocity || code == Grammer::kRadius ||
           code == Grammer::kValue1;
}

/// The first value of the records that is no likely number, with its byte in the file; empty when all are.
wxString FindUnlikely(const FileStart_cls& start, size_t headerByte, size_t records,
                      const GrammerBase_cls& grammer) {
    const char* position = start.mBytes.data() + headerByte;
    for (size_t record = 0; record < records; ++record) {
        for (const int code : grammer.GetBodyGrammer()) {
            for (unsigned int i = 0; i < GrammerBase_cls::BodyUnits(code); ++i, position += kUnit) {
                if (!IsReal(code)) continue;
                const auto value = LoadNumber<float>(position);
                if (std::isfinite(value) && IsLikely(value)) continue;
                const wxString words =
                    std::isfinite(value) ? " is hardly a number of this kind" : " is not finite";
                return wxString::Format("byte %lld, particle %zu: %s ",
                                        static_cast<long long>(position - start.mBytes.data()), record + 1,
                                        GrammerBase_cls::BodyName(code)) +
                       RealCell(value).text + words;
            }
        }
    }
    return {};
}

/// Where the number of particles stands in the file.
Bytes ByteOfCount(const GrammerBase_cls& grammer) {
    Bytes position = 0;
    for (const int code : grammer.GetHeaderGrammer()) {
        if (code == GrammerBase_cls::kNumber) break;
        position += kUnit * GrammerBase_cls::HeadUnits(code);
    }
    return position;
}

/// What the count and the file's size say of each other; the words of the misfit, empty for none.
wxString CompareCount(const FileStart_cls& start, const GrammerBase_cls& grammer, int number,
                      wxString* size) {
    const Bytes headerByte = grammer.GetHeaderByte();
    const Bytes recordByte = grammer.GetRecordByte();
    const Bytes bodyByte = start.mFileByte - headerByte;
    if (number < 0) return wxString::Format("byte %llu: the count is %d", ByteOfCount(grammer), number);
    const auto count = static_cast<Bytes>(number);
    const Bytes wanted = headerByte + count * recordByte;
    *size += wxString::Format("; the header's count takes %llu + %d x %llu = %llu", headerByte, number,
                              recordByte, wanted);
    if (wanted == start.mFileByte) return {};
    wxString words =
        wxString::Format("byte %llu: %llu bytes", std::min<Bytes>(wanted, start.mFileByte),
                         wanted < start.mFileByte ? start.mFileByte - wanted : wanted - start.mFileByte);
    words += wanted < start.mFileByte ? " are left over behind the particles" : " are missing at the end";
    if (count > 0 && bodyByte % count == 0)
        words += wxString::Format("; records of %llu bytes would fit", bodyByte / count);
    return words;
}

}  // namespace

void PreviewBinary(const FileStart_cls& start, const GrammerBase_cls& grammer, RecordPreview_cls* preview) {
    preview->mSize = wxString::Format("%llu bytes", static_cast<Bytes>(start.mFileByte));
    const SnapshotHeader_cls header = SnapshotHeader_cls::FromBinary(start.mBytes, grammer);
    if (!header.mComplete) {
        preview->mMisfit = wxString::Format("byte %u: the file ends inside its header of %u bytes",
                                            header.mBytesThere, header.mBytesWanted);
        return;
    }
    preview->mHeader = header.Describe();
    const size_t recordByte = grammer.GetRecordByte();
    if (recordByte == 0) return;
    const size_t headerByte = grammer.GetHeaderByte();
    const Bytes there = (start.mFileByte - headerByte) / recordByte;
    const Bytes wanted = header.mNumber ? static_cast<Bytes>(std::max(*header.mNumber, 0)) : there;
    const auto records =
        static_cast<size_t>(std::min<Bytes>(wanted, (start.mBytes.size() - headerByte) / recordByte));
    for (size_t i = 0; i < std::min(records, RecordPreview_cls::kMostRecords); ++i)
        preview->mRows.push_back(DecodeRecord(start.mBytes.data() + headerByte + i * recordByte, grammer));

    const wxString unlikely = FindUnlikely(start, headerByte, records, grammer);
    if (header.mNumber) {
        preview->mMisfit = CompareCount(start, grammer, *header.mNumber, &preview->mSize);
    } else {
        preview->mSize += wxString::Format("; %llu particles of %zu bytes", there, recordByte);
        const Bytes rest = (start.mFileByte - headerByte) % recordByte;
        if (rest > 0) {
            preview->mMisfit = wxString::Format("byte %llu: the last %llu bytes are no whole record",
                                                static_cast<Bytes>(start.mFileByte) - rest, rest);
        }
    }
    if (!preview->mMisfit.empty() && LooksLikeText(std::string_view(start.mBytes).substr(0, 64)))
        preview->mMisfit += "; it looks like text";
    if (preview->mMisfit.empty()) preview->mMisfit = unlikely;
}
