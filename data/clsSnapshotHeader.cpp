#include "data/clsSnapshotHeader.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

/// Longer header lines are cut: numbers stand at their start.
constexpr size_t kMaxHeaderLine = 255;

std::string_view TrimFront(std::string_view text) {
    const size_t begin = text.find_first_not_of(" \t");
    return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

template <class Number>
bool ParseNumber(std::string_view line, std::optional<Number>* number) {
    line = TrimFront(line);
    if (!line.empty() && line.front() == '+') line.remove_prefix(1);
    Number value{};
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), value);
    number->emplace(value);
    return error == std::errc();
}

template <class Number>
Number Load(const char* bytes) {
    Number value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

}  // namespace

std::string_view TakeLine(std::string_view* text) {
    const size_t end = text->find('\n');
    std::string_view line = text->substr(0, end);
    text->remove_prefix(end == std::string_view::npos ? text->size() : end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

SnapshotHeader_cls SnapshotHeader_cls::FromBinary(std::span<const char> bytes,
                                                  const GrammerBase_cls& grammer) {
    SnapshotHeader_cls header;
    header.mBytesWanted = grammer.GetHeaderByte();
    header.mBytesThere = static_cast<unsigned int>(std::min<size_t>(bytes.size(), header.mBytesWanted));
    header.mComplete = header.mBytesThere == header.mBytesWanted;
    if (grammer.IsItemExistHead(GrammerBase_cls::kTime)) header.mTime = 0.0;
    if (grammer.IsItemExistHead(GrammerBase_cls::kNumber)) header.mNumber = 0;
    if (!header.mComplete) return header;

    const char* position = bytes.data();
    for (const int code : grammer.GetHeaderGrammer()) {
        switch (code) {
            case GrammerBase_cls::kTime:
                header.mTime = static_cast<double>(Load<float>(position));
                break;
            case GrammerBase_cls::kNumber:
                header.mNumber = Load<int32_t>(position);
                break;
            default:
                break;
        }
        position += size_t{4} * GrammerBase_cls::HeadUnits(code);
    }
    return header;
}

SnapshotHeader_cls SnapshotHeader_cls::FromText(std::string_view text, const GrammerBase_cls& grammer) {
    SnapshotHeader_cls header;
    for (const int code : grammer.GetHeaderGrammer()) {
        if (text.empty()) header.mComplete = false;
        const std::string_view line = TakeLine(&text).substr(0, kMaxHeaderLine);
        if (code == GrammerBase_cls::kTime) header.mComplete &= ParseNumber(line, &header.mTime);
        if (code == GrammerBase_cls::kNumber) header.mComplete &= ParseNumber(line, &header.mNumber);
    }
    if (header.mTime && !std::isfinite(*header.mTime)) header.mTime = 0.0;
    return header;
}
