#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "data/clsEightDigits.h"

/// Walks through the words of a text of particle records, line by line, and reads them as numbers.
/// Words are separated by blanks, tabs, commas, semicolons and carriage returns; a line feed ends the record.
/// A number must fill its whole word. Reals may carry an exponent after e, E, d or D and are rounded
/// correctly to the nearest float, ties to even; too small ones are 0; too large ones, infinities and
/// not-a-number are no values. Whole numbers may be written as reals ("3.0", "1e3").
/// Plain functions on memory; nothing is read behind the end of the text.
class TextCursor_cls {
  public:
    explicit TextCursor_cls(std::string_view text) : mNow(text.data()), mEnd(text.data() + text.size()) {}

    /// Goes to the first word of the next line that holds a record: blank lines and lines that start with
    /// "#" do not. False at the end of the text.
    bool FindRecord();
    /// Goes behind the end of the current line.
    void SkipLine();
    /// The next word of the line, to go behind it; empty when there is none.
    std::string_view TakeWord();
    void SkipWord() { TakeWord(); }
    /// Where it stands in the text.
    const char* GetPosition() const { return mNow; }

    /// Read the next word of the line and go behind it. False, with the value untouched, when the line has
    /// no further word or the word is no such number.
    bool ReadFloat(float* value);
    bool ReadInteger(int32_t* value);

  private:
    /// No number that is read the quick way is longer, with what is looked at behind it.
    static constexpr ptrdiff_t kQuickByte = 40;
    static constexpr int kMaxPower = 60;
    static constexpr uint64_t kEnoughToDrop = 1000000000000;
    static constexpr uint64_t kNearMiddle = 16384;
    static const std::array<double, 2 * kMaxPower + 1> kPowersOfTen;

    static bool IsSeparator(char c) { return c == ' ' || c == '\t' || c == '\r' || c == ',' || c == ';'; }
    static bool IsWordEnd(char c) { return c == '\n' || IsSeparator(c); }

    /// Length of the sign at the start of a number.
    static int SignByte(char c) { return static_cast<int>(c == '-') | static_cast<int>(c == '+'); }

    bool IsAtLineEnd() const { return mNow == mEnd || *mNow == '\n'; }
    void SkipSeparators() {
        while (mNow != mEnd && IsSeparator(*mNow)) ++mNow;
    }
    /// For all words that the quick way can not be sure about.
    bool ReadFloatSlowly(float* value);
    bool ReadIntegerSlowly(int32_t* value);

    const char* mNow;
    const char* mEnd;
};

inline bool TextCursor_cls::FindRecord() {
    for (;;) {
        SkipSeparators();
        if (mNow == mEnd) return false;
        if (*mNow != '\n' && *mNow != '#') return true;
        SkipLine();
    }
}

inline void TextCursor_cls::SkipLine() {
    if (mNow == mEnd) return;
    const void* lineFeed = *mNow == '\n' ? mNow : std::memchr(mNow, '\n', static_cast<size_t>(mEnd - mNow));
    mNow = lineFeed ? static_cast<const char*>(lineFeed) + 1 : mEnd;
}

inline std::string_view TextCursor_cls::TakeWord() {
    SkipSeparators();
    const char* word = mNow;
    while (mNow != mEnd && !IsWordEnd(*mNow)) ++mNow;
    return {word, mNow};
}

/// Digits d with power p are computed as d * 10^p in double precision. That is within 4 units of its last
/// place, or 10^4 when digits behind the sixteenth were dropped. Rounded to float it is the nearest float,
/// unless it lies that close to the middle between two floats; those, subnormal and huge numbers, and unusual
/// forms go the slow way.
inline bool TextCursor_cls::ReadFloat(float* value) {
    SkipSeparators();
    if (IsAtLineEnd()) return false;
    if (mEnd - mNow < kQuickByte) return ReadFloatSlowly(value);
    const bool negative = *mNow == '-';
    const char* now = mNow + SignByte(*mNow);

    EightDigits_cls digits(now);
    const unsigned int whole = digits.GetCount();
    const bool hasPoint = now[whole] == '.';
    if (hasPoint) {
        if (whole == 8) return ReadFloatSlowly(value);
        digits = EightDigits_cls(now, whole);
        ++now;
    }
    if (digits.GetCount() == 0) return ReadFloatSlowly(value);
    uint64_t number = digits.GetValue();
    now += digits.GetCount();
    int power = static_cast<int>(whole) - static_cast<int>(digits.GetCount());
    if (digits.GetCount() == 8) {
        const EightDigits_cls more(now);
        number = more.GetBehind(number);
        now += more.GetCount();
        if (hasPoint) power -= static_cast<int>(more.GetCount());
        if (more.GetCount() == 8) {
            const EightDigits_cls dropped(now);
            now += dropped.GetCount();
            if (!hasPoint || dropped.GetCount() == 8 || number < kEnoughToDrop) return ReadFloatSlowly(value);
        }
    }
    if (!IsWordEnd(*now)) {
        const char letter = static_cast<char>(*now | 0x20);
        if (letter != 'e' && letter != 'd') return ReadFloatSlowly(value);
        ++now;
        const bool down = *now == '-';
        now += SignByte(*now);
        const EightDigits_cls exponent(now);
        now += exponent.GetCount();
        if (exponent.GetCount() == 0 || exponent.GetCount() > 3 || !IsWordEnd(*now))
            return ReadFloatSlowly(value);
        const auto size = static_cast<int>(exponent.GetValue());
        power += down ? -size : size;
        if (power < -kMaxPower || power > kMaxPower) return ReadFloatSlowly(value);
    }

    const double magnitude = static_cast<double>(static_cast<int64_t>(number)) *
                             kPowersOfTen[static_cast<unsigned int>(power + kMaxPower)];
    const uint64_t belowFloat = std::bit_cast<uint64_t>(magnitude) & 0x1FFFFFFFU;
    const bool nearMiddle = belowFloat - (0x10000000U - kNearMiddle) <= 2 * kNearMiddle;
    const bool normal = magnitude >= 0x1p-126 && magnitude <= 0x1.fffffep127;
    if ((nearMiddle || !normal) && number != 0) return ReadFloatSlowly(value);
    // Signs of data are random: no branch on them.
    const auto bits = std::bit_cast<uint32_t>(static_cast<float>(magnitude));
    *value = std::bit_cast<float>(bits | static_cast<uint32_t>(negative) << 31);
    mNow = now;
    return true;
}

inline bool TextCursor_cls::ReadInteger(int32_t* value) {
    SkipSeparators();
    if (IsAtLineEnd()) return false;
    if (mEnd - mNow < kQuickByte) return ReadIntegerSlowly(value);
    const bool negative = *mNow == '-';
    const char* now = mNow + SignByte(*mNow);
    const EightDigits_cls digits(now);
    if (digits.GetCount() == 0) return ReadIntegerSlowly(value);
    now += digits.GetCount();
    auto magnitude = static_cast<int64_t>(digits.GetValue());
    if (digits.GetCount() == 8) {
        const EightDigits_cls more(now);
        now += more.GetCount();
        magnitude = static_cast<int64_t>(more.GetBehind(digits.GetValue()));
    }
    const int64_t whole = negative ? -magnitude : magnitude;
    if (!IsWordEnd(*now) || whole != static_cast<int32_t>(whole)) return ReadIntegerSlowly(value);
    *value = static_cast<int32_t>(whole);
    mNow = now;
    return true;
}
