#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

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
    void SkipWord() { TakeWord(); }

    /// Read the next word of the line and go behind it. False, with the value untouched, when the line has
    /// no further word or the word is no such number.
    bool ReadFloat(float* value);
    bool ReadInteger(int32_t* value);

  private:
    /// No number that is read the quick way is longer, with what is looked at behind it.
    static constexpr ptrdiff_t kQuickByte = 40;
    static constexpr int kMaxPower = 60;
    static const std::array<double, 2 * kMaxPower + 1> kPowersOfTen;

    static bool IsSeparator(char c) { return c == ' ' || c == '\t' || c == '\r' || c == ',' || c == ';'; }
    static bool IsWordEnd(char c) { return c == '\n' || IsSeparator(c); }

    /// Length of the sign at the start of a number.
    static int SignByte(char c) { return static_cast<int>(c == '-') | static_cast<int>(c == '+'); }

    bool IsAtLineEnd() const { return mNow == mEnd || *mNow == '\n'; }
    void SkipSeparators() {
        while (mNow != mEnd && IsSeparator(*mNow)) ++mNow;
    }
    std::string_view TakeWord();
    /// For all words that the quick way can not be sure about.
    bool ReadFloatSlowly(float* value);
    bool ReadIntegerSlowly(int32_t* value);

    const char* mNow;
    const char* mEnd;
};

/// Up to eight decimal digits at once. No branch depends on how many of the eight characters are digits,
/// which is what costs time in a loop over characters.
class EightDigits_cls {
  public:
    /// The digits that the eight characters start with.
    explicit EightDigits_cls(const char* characters) : EightDigits_cls(Load(characters)) {}
    /// The same when the character at `point` is left out.
    EightDigits_cls(const char* characters, unsigned int point)
        : EightDigits_cls((Load(characters) & Lowest(point)) | (Load(characters + 1) & ~Lowest(point))) {}

    unsigned int GetCount() const { return mCount; }
    /// Their value; there is at least one.
    uint64_t GetValue() const {
        // Leading zeros in front, then neighbours are joined to pairs, fours and eights.
        uint64_t joined = mDigits << (64 - 8 * mCount);
        joined = joined * 10 + (joined >> 8);
        return ((joined & 0x000000FF000000FFU) * 0x000F424000000064U +
                ((joined >> 16) & 0x000000FF000000FFU) * 0x0000271000000001U) >>
               32;
    }
    /// The number made by other digits and these behind them.
    uint64_t GetBehind(uint64_t before) const {
        constexpr uint64_t kTens[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};
        return mCount == 0 ? before : before * kTens[mCount] + GetValue();
    }

  private:
    explicit EightDigits_cls(uint64_t digits) : mDigits(digits) {
        // Bytes above 9. A carry out of a byte reaches only bytes behind the first that is no digit.
        const uint64_t others = (digits | (digits + 0x0606060606060606U)) & 0xF0F0F0F0F0F0F0F0U;
        mCount = others == 0 ? 8 : static_cast<unsigned int>(std::countr_zero(others)) / 8;
    }
    static uint64_t Lowest(unsigned int bytes) { return (uint64_t{1} << (8 * bytes)) - 1; }
    /// The first character lowest, digits as 0 to 9.
    static uint64_t Load(const char* characters) {
        uint64_t eight = 0;
        std::memcpy(&eight, characters, sizeof eight);
        if constexpr (std::endian::native == std::endian::big) eight = __builtin_bswap64(eight);
        return eight ^ 0x3030303030303030U;
    }

    uint64_t mDigits;
    unsigned int mCount;
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

/// Digits d with power p are computed as d * 10^p in double precision, within 3 units of its last place.
/// Rounded to float that is the nearest float, unless the double lies that close to the middle between two
/// floats; those, subnormal and huge numbers, and whatever is longer than 15 digits go the slow way.
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
        if (more.GetCount() == 8 || (!hasPoint && more.GetCount() > 0)) return ReadFloatSlowly(value);
        number = more.GetBehind(number);
        now += more.GetCount();
        power -= static_cast<int>(more.GetCount());
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
                             kPowersOfTen[static_cast<size_t>(power + kMaxPower)];
    const uint64_t belowFloat = std::bit_cast<uint64_t>(magnitude) & 0x1FFFFFFFU;
    const bool nearMiddle = belowFloat - (0x10000000U - 8) <= 16;
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
    now += digits.GetCount();
    if (digits.GetCount() == 0 || !IsWordEnd(*now)) return ReadIntegerSlowly(value);
    const auto magnitude = static_cast<int32_t>(digits.GetValue());
    *value = negative ? -magnitude : magnitude;
    mNow = now;
    return true;
}
