#include "data/clsLayoutHint.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "data/clsLinePieces.h"

namespace {

constexpr size_t kLookedAtByte = 64;

bool IsTextFile(const InputFile_cls& file) {
    std::string bytes(kLookedAtByte, '\0');
    bytes.resize(file.ReadAt(0, bytes.data(), bytes.size()));
    return LooksLikeText(bytes);
}

uint64_t SizeFor(const GrammerBase_cls& grammer, uint64_t particles) {
    return grammer.GetHeaderByte() + particles * grammer.GetRecordByte();
}

}  // namespace

bool LooksLikeText(std::string_view start) {
    return !start.empty() && std::all_of(start.begin(), start.end(), [](unsigned char c) {
        // Letters of other languages are bytes from 128 on.
        return c >= 128 || std::isprint(c) || std::isspace(c);
    });
}

wxString GuessLayout(const InputFile_cls& file, const GrammerBase_cls& grammer, int number) {
    if (grammer.IsText()) return {};
    if (IsTextFile(file)) return "; it looks like text (DataLoadDataType=1)";
    const uint32_t swapped = __builtin_bswap32(static_cast<uint32_t>(number));
    if (SizeFor(grammer, swapped) == file.GetSize()) {
        return wxString::Format("; the file has the other byte order (%u particles)", swapped);
    }
    return {};
}

wxString DescribeLeftover(const InputFile_cls& file, const GrammerBase_cls& grammer, int particles) {
    if (grammer.IsText()) {
        const int lines = LinePieces_cls::CountRecords(file, grammer.GetHeaderLine()) - particles;
        return lines > 0 ? wxString::Format("%d lines", lines) : wxString();
    }
    const uint64_t used = SizeFor(grammer, static_cast<uint64_t>(std::max(particles, 0)));
    if (file.GetSize() <= used) return {};
    return wxString::Format("%llu bytes", static_cast<unsigned long long>(file.GetSize() - used));
}
