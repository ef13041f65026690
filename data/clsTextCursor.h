#pragma once

#include <array>
#include <bit>
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
    /// Decimal digits in a row and the number they make; more than kSureDigits wrap around.
    struct Digits {
        uint64_t value = 0;
        int count = 0;
    };
    static constexpr int kSureDigits = 18;
    static constexpr int kMaxPower = 60;
    static const std::array<double, 2 * kMaxPower + 1> kPowerOfTen;

    static bool IsSeparator(char c) { return c == ' ' || c == '\t' || c == '\r' || c == ',' || c == ';'; }

    bool AtWordEnd() const { return mNow == mEnd || *mNow == '\n' || IsSeparator(*mNow); }
    void SkipSeparators() {
        while (mNow != mEnd && IsSeparator(*mNow)) ++mNow;
    }
    bool TakeIf(char c) {
        const bool there = mNow != mEnd && *mNow == c;
        if (there) ++mNow;
        return there;
    }
    bool TakeMinus() {
        const bool minus = TakeIf('-');
        if (!minus) TakeIf('+');
        return minus;
    }
    std::string_view TakeWord();
    uint64_t LoadEight() const;
    void TakeDigits(Digits* digits);
    bool TakeExponent(int* exponent);
    /// For words the quick way can not be sure about.
    bool ReadFloatSlowly(const char* word, float* value);
    bool ReadIntegerSlowly(const char* word, int32_t* value);

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
    if (mNow == mEnd || TakeIf('\n')) return;
    const void* lineFeed = std::memchr(mNow, '\n', static_cast<size_t>(mEnd - mNow));
    mNow = lineFeed ? static_cast<const char*>(lineFeed) + 1 : mEnd;
}

inline std::string_view TextCursor_cls::TakeWord() {
    SkipSeparators();
    const char* word = mNow;
    while (!AtWordEnd()) ++mNow;
    return {word, mNow};
}

/// The next eight characters, the first one lowest; zeros behind the end of the text.
inline uint64_t TextCursor_cls::LoadEight() const {
    uint64_t eight = 0;
    if (mEnd - mNow >= 8) {
        std::memcpy(&eight, mNow, 8);
    } else if (mNow != mEnd) {
        std::memcpy(&eight, mNow, static_cast<size_t>(mEnd - mNow));
    }
    if constexpr (std::endian::native == std::endian::big) eight = __builtin_bswap64(eight);
    return eight;
}

/// Digits are taken eight at a time, however many of the eight there are: no branch depends on how long the
/// number is, which is what costs time in a loop over characters.
inline void TextCursor_cls::TakeDigits(Digits* digits) {
    static constexpr uint64_t kTens[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
    for (;;) {
        uint64_t eight = LoadEight() ^ 0x3030303030303030U;
        // Bytes above 9. A carry out of a byte reaches only bytes behind the first that is no digit.
        const uint64_t others = (eight | (eight + 0x0606060606060606U)) & 0xF0F0F0F0F0F0F0F0U;
        const int count = others == 0 ? 8 : std::countr_zero(others) / 8;
        if (count == 0) return;
        eight <<= 64 - 8 * count;
        // Neighbours are joined to pairs, fours and eights.
        eight = eight * 10 + (eight >> 8);
        const uint64_t joined = ((eight & 0x000000FF000000FFU) * 0x000F424000000064U +
                                 ((eight >> 16) & 0x000000FF000000FFU) * 0x0000271000000001U) >>
                                32;
        digits->value = digits->value * kTens[count] + joined;
        digits->count += count;
        mNow += count;
        if (count < 8) return;
    }
}

/// The number of digits d and power p is computed as d * 10^p in double precision, within 3 units of its last
/// place. Rounded to float that is the nearest float unless the double lies that close to the middle between
/// two floats; those, the subnormal and the largest numbers go the slow way.
inline bool TextCursor_cls::ReadFloat(float* value) {
    SkipSeparators();
    const char* word = mNow;
    const bool negative = TakeMinus();
    Digits digits;
    TakeDigits(&digits);
    int power = 0;
    if (TakeIf('.')) {
        const int whole = digits.count;
        TakeDigits(&digits);
        power = whole - digits.count;
    }
    if (digits.count == 0 || (!AtWordEnd() && !TakeExponent(&power))) {
        SkipWord();
        return false;
    }
    if (digits.count > kSureDigits || power < -kMaxPower || power > kMaxPower)
        return ReadFloatSlowly(word, value);

    const double magnitude = static_cast<double>(static_cast<int64_t>(digits.value)) *
                             kPowerOfTen[static_cast<size_t>(power + kMaxPower)];
    const uint64_t belowFloat = std::bit_cast<uint64_t>(magnitude) & 0x1FFFFFFFU;
    const bool nearMiddle = belowFloat - (0x10000000U - 8) <= 16;
    const bool normal = magnitude >= 0x1p-126 && magnitude <= 0x1.fffffep127;
    if ((nearMiddle || !normal) && digits.value != 0) return ReadFloatSlowly(word, value);
    const auto rounded = static_cast<float>(magnitude);
    *value = negative ? -rounded : rounded;
    return true;
}

inline bool TextCursor_cls::ReadInteger(int32_t* value) {
    SkipSeparators();
    const char* word = mNow;
    const bool negative = TakeMinus();
    Digits digits;
    TakeDigits(&digits);
    if (digits.count == 0 || digits.count > kSureDigits || !AtWordEnd())
        return ReadIntegerSlowly(word, value);
    const auto magnitude = static_cast<int64_t>(digits.value);
    const int64_t whole = negative ? -magnitude : magnitude;
    if (whole != static_cast<int32_t>(whole)) return false;
    *value = static_cast<int32_t>(whole);
    return true;
}
