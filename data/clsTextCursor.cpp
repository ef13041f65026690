#include "data/clsTextCursor.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

/// Computed in the wider type, so that every entry is within 0.501 units of the last place of its power.
constexpr auto PowersOfTen() {
    constexpr size_t kMaxPower = 60;
    static_assert(std::numeric_limits<long double>::digits >= 64);
    std::array<double, 2 * kMaxPower + 1> powers{};
    long double power = 1.0L;
    for (size_t i = 0; i <= kMaxPower; ++i, power *= 10.0L) {
        powers[kMaxPower + i] = static_cast<double>(power);
        powers[kMaxPower - i] = static_cast<double>(1.0L / power);
    }
    return powers;
}

/// Parses all of the text, correctly rounded; Fortran writes the exponent with a D.
template <class Real>
std::errc ParseReal(std::string_view text, Real* value) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    std::array<char, 128> copy{};
    const size_t exponent = text.find_first_of("dD");
    if (exponent != std::string_view::npos && text.size() <= copy.size()) {
        std::ranges::copy(text, copy.begin());
        copy[exponent] = 'e';
        text = {copy.data(), text.size()};
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *value);
    return end == text.data() + text.size() ? error : std::errc::invalid_argument;
}

/// Of a number that is out of a real's range: whether it is too small, not too large.
bool IsTiny(std::string_view text) {
    const size_t exponentAt = std::min(text.find_first_of("eEdD"), text.size());
    const std::string_view mantissa = text.substr(0, exponentAt);
    const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<long long>(mantissa.find_first_of("123456789"));
    std::string_view digits = text.substr(std::min(exponentAt + 1, text.size()));
    if (!digits.empty() && digits.front() == '+') digits.remove_prefix(1);
    long long exponent = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    if (error == std::errc::result_out_of_range) return digits.front() == '-';
    return exponent < first - point;
}

}  // namespace

const std::array<double, 2 * TextCursor_cls::kMaxPower + 1> TextCursor_cls::kPowersOfTen = PowersOfTen();

bool TextCursor_cls::ReadFloatSlowly(float* value) {
    const std::string_view text = TakeWord();
    float number = 0.0F;
    const std::errc error = ParseReal(text, &number);
    if (error == std::errc::result_out_of_range && IsTiny(text)) {
        number = text.front() == '-' ? -0.0F : 0.0F;
    } else if (error != std::errc() || !std::isfinite(number)) {
        return false;
    }
    *value = number;
    return true;
}

bool TextCursor_cls::ReadIntegerSlowly(int32_t* value) {
    double number = 0.0;
    constexpr std::numeric_limits<int32_t> kRange;
    if (ParseReal(TakeWord(), &number) != std::errc() || number != std::floor(number) ||
        number < kRange.min() || number > kRange.max())
        return false;
    *value = static_cast<int32_t>(number);
    return true;
}
