#include "timeline/clsKeyFrame.h"

#include <wx/translation.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "CONFITEM/clsConfItem.h"

namespace {

/// "%d", "%f" and the like in the C numeric form, with the blank that ends every field.
template <class... Format>
void AppendField(std::string& text, Format... format) {
    char buffer[400];  // the largest double with nine decimals has 319 characters
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, format...);
    text.append(buffer, result.ptr);
    text += ' ';
}

constexpr std::string_view kBlanks = " \t\r\v\f";

/// Cuts the next word off the line; empty when there is none.
std::string_view NextWord(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    const std::string_view word = line.substr(0, line.find_first_of(kBlanks));
    line.remove_prefix(word.size());
    return word;
}

template <class Number>
std::optional<Number> ParseNumber(std::string_view word) {
    if (word.starts_with('+')) word.remove_prefix(1);
    Number number{};
    const std::from_chars_result result = std::from_chars(word.data(), word.data() + word.size(), number);
    if (result.ec != std::errc() || result.ptr != word.data() + word.size()) return {};
    return number;
}

/// A number that may be missing at the end of the line.
std::optional<double> ParseTrailing(std::string_view word) {
    return word.empty() ? 0.0 : ParseNumber<double>(word);
}

}  // namespace

wxString KeyFrame_cls::GetTypeName(unsigned int type) {
    switch (type) {
        case kHermiteAuto:
            return wxGetTranslation("HERMITE (AUTO)");
        case kHermiteSemiAuto:
            return "HERMITE (SEMIAUTO)";  // the one name without a translation
        case kHermite:
            return wxGetTranslation("HERMITE");
        case kStep:
            return wxGetTranslation("STEP");
        default:
            return wxGetTranslation("LINEAR");
    }
}

void KeyFrame_cls::Set(double time, unsigned int type, double value, double velocity, double easeFactor,
                       bool selected) {
    mTime = time;
    mType = type;
    mSelected = selected;
    SetValue(value, velocity, easeFactor);
}

void KeyFrame_cls::SetValue(double value, double velocity, double easeFactor) {
    mValue = value;
    mVelocity = velocity;
    mEaseFactor = easeFactor;
}

bool KeyFrame_cls::IsFinite() const {
    return std::isfinite(mTime) && std::isfinite(mValue) && std::isfinite(mVelocity) &&
           std::isfinite(mEaseFactor);
}

KeyFrame_cls KeyFrame_cls::Rounded() const {
    std::string line;
    Serialize(line);
    line.pop_back();
    KeyFrame_cls key;
    key.ReadStrLine(line);
    return key;
}

void KeyFrame_cls::Serialize(std::string& text) const {
    if (ExactNumbers_cls::IsWanted()) return SerializeExact(text);
    AppendField(text, mTime, std::chars_format::fixed, 9);
    AppendField(text, static_cast<int>(mType));
    for (const double field : {mValue, mVelocity, mEaseFactor})
        AppendField(text, field, std::chars_format::fixed, 6);
    text += '\n';
}

void KeyFrame_cls::SerializeExact(std::string& text) const {
    AppendField(text, mTime);
    AppendField(text, static_cast<int>(mType));
    for (const double field : {mValue, mVelocity, mEaseFactor}) AppendField(text, field);
    text += '\n';
}

bool KeyFrame_cls::ReadStrLine(std::string_view line) {
    const auto time = ParseNumber<double>(NextWord(line));
    const auto type = ParseNumber<long long>(NextWord(line));
    const auto value = ParseNumber<double>(NextWord(line));
    const auto velocity = ParseTrailing(NextWord(line));
    const auto easeFactor = ParseTrailing(NextWord(line));
    if (!time || !type || !value || !velocity || !easeFactor) return false;

    KeyFrame_cls key;
    key.Set(*time, static_cast<unsigned int>(*type), *value, *velocity, *easeFactor, false);
    if (!key.IsFinite()) return false;
    *this = key;
    return true;
}
