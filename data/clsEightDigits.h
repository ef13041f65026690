#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

/// The decimal digits, up to eight, that eight characters start with, taken all at once: no branch depends on
/// how many there are, which is what costs time in a loop over characters.
/// The characters, and one more when a point is left out, must be there to be read.
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
        constexpr uint64_t kTens[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
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
