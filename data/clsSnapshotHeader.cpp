#include "data/clsSnapshotHeader.h"

#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include "data/clsLoadNumber.h"

namespace {

/// Longer header lines are cut: numbers stand at their start.
constexpr size_t kMaxHeaderLine = 255;

std::string_view TrimFront(std::string_view text) {
    const size_t begin = text.find_first_not_of(" \t");
    return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

/// The number that a line starts with; Fortran writes exponents with a D.
bool ParseLeadingReal(std::string_view line, double* value) {
    line = TrimFront(line);
    if (!line.empty() && line.front() == '+') line.remove_prefix(1);
    std::string word(line.substr(0, line.find_first_of(" \t,;")));
    const size_t exponent = word.find_first_of("dD");
    if (exponent != std::string::npos) word[exponent] = 'e';
    *value = 0.0;
    return std::from_chars(word.data(), word.data() + word.size(), *value).ec == std::errc() &&
           std::isfinite(*value);
}

bool ParseTime(std::string_view line, std::optional<double>* time) {
    double value = 0.0;
    const bool good = ParseLeadingReal(line, &value);
    time->emplace(good ? value : 0.0);
    return good;
}

bool ParseCount(std::string_view line, std::optional<int>* number) {
    double value = 0.0;
    const bool good =
        ParseLeadingReal(line, &value) && value == std::floor(value) && std::abs(value) <= INT_MAX;
    number->emplace(good ? static_cast<int>(value) : 0);
    return good;
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
    return text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text;
}

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
    header.mTimeKnown = header.mComplete || !header.mTime;
    if (!header.mComplete) return header;

    const char* position = bytes.data();
    for (const int code : grammer.GetHeaderGrammer()) {
        switch (code) {
            case GrammerBase_cls::kTime:
                header.mTime = static_cast<double>(LoadNumber<float>(position));
                header.mTimeKnown = std::isfinite(*header.mTime);
                if (!header.mTimeKnown) header.mTime = 0.0;
                break;
            case GrammerBase_cls::kNumber:
                header.mNumber = LoadNumber<int32_t>(position);
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
    text = WithoutByteOrderMark(text);
    int lineNumber = 0;
    for (const int code : grammer.GetHeaderGrammer()) {
        ++lineNumber;
        if (text.empty()) header.mComplete = false;
        const std::string_view line = TakeLine(&text).substr(0, kMaxHeaderLine);
        if (code == GrammerBase_cls::kTime) {
            header.mTimeKnown = ParseTime(line, &header.mTime);
            header.mComplete &= header.mTimeKnown;
        }
        if (code == GrammerBase_cls::kNumber) header.mComplete &= ParseCount(line, &header.mNumber);
        if (!header.mComplete && header.mBadLine == 0) header.mBadLine = lineNumber;
    }
    return header;
}

wxString SnapshotHeader_cls::Describe() const {
    const wxString time = mTime ? wxString::Format("time %g", *mTime) : wxString("no time");
    return time + (mNumber ? wxString::Format(", %d particles", *mNumber) : wxString(", no count"));
}
