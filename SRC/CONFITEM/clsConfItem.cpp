#include "CONFITEM/clsConfItem.h"

#include <locale.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <locale>
#include <sstream>

// The dimension check below guards fixed storage, so it stays in release builds too.
#undef NDEBUG
#include <cassert>

// Reading and writing of single items. Every number goes through the Format() and Parse() of its kind below,
// so that the file format stands in one place.

ConfItem_cls::ConfItem_cls(int typeCode) : mTypeCode(typeCode) {}

bool ConfItem_cls::ReadStrLineBase(const wxString& line) {
    if (line.find(mKey) == wxString::npos) return false;
    // Cut from the start of the line, not from where the key was found: files are read this way, so keys
    // offered the same lines must never occur inside one another.
    mValueText = line.substr(mKey.length());
    return true;
}

void ConfItem_cls::ReplaceSeparator() {
    mValueText.Replace("\\", "/");
    mValueText.Replace(" ", "\\ ");
}

void ConfItem_cls::CopyFrom(const ConfItem_cls& other) {
    mKey = other.mKey;
    mValueText = other.mValueText;
    CopyValueFrom(other);
    mTypeCode = other.mTypeCode;
}

ConfItemSTR_cls::ConfItemSTR_cls(const wxString& key, const wxString& value) : ConfItem_cls(1) {
    SetItem(key, value);
}

void ConfItemSTR_cls::SetItem(const wxString& key, const wxString& value) {
    mKey = key;
    if (!value.empty()) mValueText = value;
}

wxString ConfItemSTR_cls::Serialize() const {
    if (mValueText == "!!SKIP!!") return {};
    return mKey + mValueText + "\n";
}

// A blank in the first position makes no element, two blanks in a row do. Only default texts of the program's
// own code come here; rather than write past the storage the program stops, as always naming line 62.

// NOLINTNEXTLINE(performance-unnecessary-value-param): the assertion names this very signature.
unsigned int ConfArray_cls::CountDimension(wxString text) {
    dimension = 1;
    for (size_t i = 1; i < text.length(); ++i) dimension += text[i] == ' ' ? 1U : 0U;
    assert(dimension <= 16);
    return dimension;
}

namespace {

/// Numbers never depend on the language of the process: GUI libraries change its locale as they like.
locale_t NumericLocale() {
    static const locale_t kLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    return kLocale;
}

double ParseDouble(const std::string& text) {
    return strtod_l(text.c_str(), nullptr, NumericLocale());
}

long ParseLong(const std::string& text) {
    return std::strtol(text.c_str(), nullptr, 10);
}

template <class... Args>
std::string FormatNumber(Args... args) {
    char buffer[400];  // the largest double with six decimals has 316 characters
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, args...);
    return {buffer, error == std::errc() ? end : buffer};
}

/// A whole text that is one number, in the range of its type and finite.
template <class Number>
bool IsNumber(const std::string& text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(number)) return false;
    }
    return error == std::errc() && stop == end;
}

std::string ToAscii(const wxString& text) {
    // Characters outside ASCII become one that no number contains, so parsing stops there.
    return std::string(text.ToAscii('?').data());
}

}  // namespace

thread_local int ExactNumbers_cls::msLiving = 0;

std::string ConfInt_cls::Format(Value value) {
    return FormatNumber(value);
}
ConfInt_cls::Value ConfInt_cls::Parse(const std::string& text) {
    return static_cast<Value>(ParseLong(text));
}
bool ConfInt_cls::IsValue(const std::string& text) {
    return IsNumber<int>(text);
}

std::string ConfUInt_cls::Format(Value value) {
    return FormatNumber(value);
}
ConfUInt_cls::Value ConfUInt_cls::Parse(const std::string& text) {
    return static_cast<Value>(ParseLong(text));
}
bool ConfUInt_cls::IsValue(const std::string& text) {
    return IsNumber<unsigned int>(text);
}

std::string ConfFloat_cls::Format(Value value) {
    if (ExactNumbers_cls::IsWanted()) return FormatNumber(value);
    return FormatNumber(static_cast<double>(value), std::chars_format::fixed, 6);
}
ConfFloat_cls::Value ConfFloat_cls::Parse(const std::string& text) {
    return static_cast<Value>(ParseDouble(text));
}
bool ConfFloat_cls::IsValue(const std::string& text) {
    return IsNumber<float>(text);
}

std::string ConfDouble_cls::Format(Value value) {
    if (ExactNumbers_cls::IsWanted()) return FormatNumber(value);
    return FormatNumber(value, std::chars_format::general, 6);
}
ConfDouble_cls::Value ConfDouble_cls::Parse(const std::string& text) {
    return ParseDouble(text);
}
bool ConfDouble_cls::IsValue(const std::string& text) {
    return IsNumber<double>(text);
}

std::string ConfBool_cls::Format(Value value) {
    return value ? "1" : "0";
}
ConfBool_cls::Value ConfBool_cls::Parse(const std::string& text) {
    return ParseLong(text) != 0;
}
bool ConfBool_cls::IsValue(const std::string& text) {
    return text == "0" || text == "1";
}

template <class Kind, int kCode>
void ConfItemScalar_cls<Kind, kCode>::SetItem(const wxString& key, const wxString& value) {
    mKey = key;
    if (value.empty()) return;
    mValueText = value;
    mValue = Kind::Parse(ToAscii(value));
}

template <class Kind, int kCode>
bool ConfItemScalar_cls<Kind, kCode>::ReadStrLine(const wxString& line) {
    if (!ReadStrLineBase(line)) return false;
    mValue = Kind::Parse(ToAscii(mValueText));
    return true;
}

template <class Kind, int kCode>
wxString ConfItemScalar_cls<Kind, kCode>::Serialize() const {
    return mKey + GetItemStr() + "\n";
}

template <class Kind, int kCode>
wxString ConfItemScalar_cls<Kind, kCode>::GetItemStr() const {
    return wxString::FromAscii(Kind::Format(mValue).c_str());
}

template <class Kind, int kCode>
void ConfItemScalar_cls<Kind, kCode>::CopyValueFrom(const ConfItem_cls& other) {
    if (const auto* same = dynamic_cast<const ConfItemScalar_cls*>(&other)) mValue = same->mValue;
}

template <class Kind, int kCode>
int ConfItemScalar_cls<Kind, kCode>::FindElement(const void* address) const {
    return Kind::kFindable && address == &mValue ? 0 : -1;
}

template <class Kind, int kCode>
bool ConfItemScalar_cls<Kind, kCode>::Accepts(const wxString& value) const {
    return Kind::IsValue(ToAscii(value));
}

template <class Kind, int kCode>
void ConfItemArray_cls<Kind, kCode>::SetItem(const wxString& key, const wxString& value) {
    mKey = key;
    if (value.empty()) return;
    mValueText = value;
    CountDimension(value);
    ReadStrLine(key + value);
}

template <class Kind, int kCode>
bool ConfItemArray_cls<Kind, kCode>::ReadStrLine(const wxString& line) {
    if (!ReadStrLineBase(line)) return false;

    const bool countFromLine = kCode == 3;
    const unsigned int wanted = countFromLine ? kMaxDimension : dimension;
    std::istringstream stream(ToAscii(mValueText));
    stream.imbue(std::locale::classic());
    unsigned int read = 0;
    for (Value value{}; read < wanted && stream >> value; ++read) mValue[read] = value;
    if (countFromLine) dimension = read;
    return true;
}

template <class Kind, int kCode>
wxString ConfItemArray_cls<Kind, kCode>::Serialize() const {
    std::string text = Kind::Format(mValue[0]);
    for (unsigned int i = 1; i < dimension; ++i) text += " " + Kind::Format(mValue[i]);
    return mKey + wxString::FromAscii(text.c_str()) + "\n";
}

template <class Kind, int kCode>
wxString ConfItemArray_cls<Kind, kCode>::GetItemStr() const {
    std::string text = Kind::Format(mValue[0]);
    for (unsigned int i = 0; i < dimension; ++i) text += " " + Kind::Format(mValue[i]);
    return wxString::FromAscii(text.c_str());
}

template <class Kind, int kCode>
void ConfItemArray_cls<Kind, kCode>::CopyValueFrom(const ConfItem_cls& other) {
    const auto* same = dynamic_cast<const ConfItemArray_cls*>(&other);
    if (!same) return;
    dimension = same->dimension;
    mValue = same->mValue;
}

template <class Kind, int kCode>
int ConfItemArray_cls<Kind, kCode>::FindElement(const void* address) const {
    // Unsigned arrays (code 5) never took part in this search.
    if (!Kind::kFindable || kCode == 5) return -1;
    for (unsigned int i = 0; i < dimension; ++i) {
        if (address == &mValue[i]) return static_cast<int>(i);
    }
    return -1;
}

template <class Kind, int kCode>
bool ConfItemArray_cls<Kind, kCode>::Accepts(const wxString& value) const {
    const std::string text = ToAscii(value);
    unsigned int count = 0;
    for (size_t begin = 0; begin <= text.size(); ++count) {
        const size_t end = std::min(text.find(' ', begin), text.size());
        if (count == kMaxDimension || !Kind::IsValue(text.substr(begin, end - begin))) return false;
        begin = end + 1;
    }
    return kCode == 3 || count == dimension;
}

template <class Kind, int kCode>
wxString ConfItemScalar_cls<Kind, kCode>::GetValueWords() const {
    return wxString("one value: ") + Kind::kWords;
}

template <class Kind, int kCode>
wxString ConfItemArray_cls<Kind, kCode>::GetValueWords() const {
    const wxString number = kCode == 3 ? wxString("1 to 16") : wxString::Format("%u", dimension);
    return number + " values with blanks between them, each: " + Kind::kWords;
}

template class ConfItemScalar_cls<ConfInt_cls, 2>;
template class ConfItemScalar_cls<ConfUInt_cls, 4>;
template class ConfItemScalar_cls<ConfFloat_cls, 6>;
template class ConfItemScalar_cls<ConfDouble_cls, 8>;
template class ConfItemScalar_cls<ConfBool_cls, 10>;
template class ConfItemArray_cls<ConfInt_cls, 3>;
template class ConfItemArray_cls<ConfUInt_cls, 5>;
template class ConfItemArray_cls<ConfFloat_cls, 7>;
template class ConfItemArray_cls<ConfDouble_cls, 9>;
template class ConfItemArray_cls<ConfBool_cls, 9>;
