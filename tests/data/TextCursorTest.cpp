#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <random>

#include "data/clsTextCursor.h"

namespace {

std::optional<float> ReadFloat(const std::string& text) {
    float value = 0.0F;
    return TextCursor_cls(text).ReadFloat(&value) ? std::optional(value) : std::nullopt;
}
std::optional<int32_t> ReadInteger(const std::string& text) {
    int32_t value = 0;
    return TextCursor_cls(text).ReadInteger(&value) ? std::optional(value) : std::nullopt;
}

/// A number at the very end of a text is read another way than one with text behind it.
const std::string kBehind = " 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20\n";

TEST(TextCursorTest, WordsAreNumbersOrNot) {
    struct Case {
        const char* word;
        std::optional<float> real;
        std::optional<int32_t> whole;
    };
    const Case cases[] = {
        {"0", 0.0F, 0},
        {"-0.0", -0.0F, 0},
        {"+7", 7.0F, 7},
        {"5.", 5.0F, 5},
        {".5", 0.5F, {}},
        {"3.0", 3.0F, 3},
        {"1e3", 1000.0F, 1000},
        {"1D+05", 1e5F, 100000},
        {"-2.5d-1", -0.25F, {}},
        {"1E+0000000002", 100.0F, 100},
        {"12345678", 12345678.0F, 12345678},
        {"123456789", 123456789.0F, 123456789},
        {"2147483647", 2147483648.0F, 2147483647},
        {"-2147483648", -2147483648.0F, -2147483647 - 1},
        {"2147483648", 2147483648.0F, {}},
        {"0000000000000000000000000000000005", 5.0F, 5},
        {"0.00000000000000000000000000000000000000000025", 2.5e-43F, {}},
        {"16777217", 16777216.0F, 16777217},
        {"16777219", 16777220.0F, 16777219},
        {"3.4028235e38", 3.4028235e38F, {}},
        {"3.40282356e38", 3.4028235e38F, {}},
        {"3.4028236e38", {}, {}},
        {"1e39", {}, {}},
        {"1e400", {}, {}},
        {"-1e99999999999999999999", {}, {}},
        {"1e-46", 0.0F, {}},
        {"-1e-400", -0.0F, {}},
        {"1e-99999999999999999999", 0.0F, {}},
        {"1.17549435e-38", 1.17549435e-38F, {}},
        {"1.4e-45", 1.4e-45F, {}},
        {"nan", {}, {}},
        {"-inf", {}, {}},
        {"infinity", {}, {}},
        {"1.2.3", {}, {}},
        {"1e", {}, {}},
        {"1e+", {}, {}},
        {"1x", {}, {}},
        {"0x10", {}, {}},
        {"+-5", {}, {}},
        {"--5", {}, {}},
        {".", {}, {}},
        {"-", {}, {}},
        {"12345678.", 12345678.0F, 12345678},
        {"1.23456789012345678", 1.2345679F, {}},
        {"\xc3\xa9", {}, {}},
    };
    for (const Case& c : cases) {
        for (const std::string& behind : {std::string(), std::string("\n"), kBehind}) {
            EXPECT_EQ(ReadFloat(c.word + behind), c.real) << c.word << '|' << behind;
            EXPECT_EQ(ReadInteger(c.word + behind), c.whole) << c.word << '|' << behind;
        }
    }
    const auto minusZero = ReadFloat("-1e-400");
    EXPECT_TRUE(minusZero && std::signbit(*minusZero));
}

/// Texts of numbers as programs write them, and those that lie between two floats or as near as can be.
std::string RandomNumber(std::mt19937_64& random) {
    const auto bits = static_cast<uint32_t>(random());
    const float value = std::bit_cast<float>(bits & 0xFF7FFFFFU);
    const double middle = (static_cast<double>(value) + std::nextafter(value, 1e38F)) / 2;
    char text[96] = "";
    const auto print = [&text](const char* format, auto... values) {
        std::snprintf(text, sizeof text, format, values...);
    };
    switch (random() % 8) {
        case 0:
            *std::to_chars(text, text + sizeof text, value).ptr = '\0';
            break;
        case 1:
            print("%.6f", static_cast<int32_t>(bits) / 1e6);
            break;
        case 2:
            print("%.*e", static_cast<int>(random() % 25), value);
            break;
        case 3:
            print("%.25g", middle);
            break;
        case 4:
            print("%.17g", std::nextafter(middle, random() % 2 ? 1e300 : -1e300));
            break;
        case 5:
            print("%llu%s%d", static_cast<unsigned long long>(random() >> random() % 60),
                  random() % 2 ? "e" : "E", static_cast<int>(random() % 110) - 60);
            break;
        case 6:
            print("%u.%u", bits % 100000, static_cast<unsigned int>(random()));
            break;
        default:
            print("%u", bits);
            break;
    }
    return text;
}

TEST(TextCursorTest, RealsAreRoundedCorrectly) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 300000; ++i) {
        const std::string text = RandomNumber(random);
        float expected = std::strtof(text.c_str(), nullptr);
        const auto value = ReadFloat(text + (i % 4 == 0 ? "" : kBehind));
        if (!std::isfinite(expected)) {
            ASSERT_FALSE(value.has_value()) << text;
        } else {
            ASSERT_TRUE(value.has_value()) << text;
            ASSERT_EQ(std::bit_cast<uint32_t>(*value), std::bit_cast<uint32_t>(expected)) << text;
        }
    }
}

TEST(TextCursorTest, EveryWholeNumberIsExact) {
    std::mt19937_64 random(8);
    for (int i = 0; i < 100000; ++i) {
        const auto number = static_cast<int32_t>(random() >> (random() % 32 + 32));
        const std::string text = std::to_string(i % 2 ? number : -number);
        ASSERT_EQ(ReadInteger(text + (i % 4 < 2 ? "" : kBehind)), std::stoi(text)) << text;
    }
}

}  // namespace
