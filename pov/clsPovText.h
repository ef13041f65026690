#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <vector>

#include "seam/clsOutputFile.h"

/// Scene text on its way to a file: words, and numbers in their shortest exact form, whatever the language of
/// the process. Gathered in one block, so that a number costs little more than its digits. Without a file the
/// block grows, and is put into another text.
/// Threads: one at a time. Failure: the file keeps the first error.
class PovText_cls {
  public:
    PovText_cls() = default;
    explicit PovText_cls(OutputFile_cls& file) : mFile(&file) {}
    ~PovText_cls() { Flush(); }
    PovText_cls(const PovText_cls&) = delete;
    PovText_cls& operator=(const PovText_cls&) = delete;

    PovText_cls& operator<<(std::string_view words) {
        if (mFile && words.size() > kBlock) {
            Flush();
            mFile->Write(words.data(), words.size());
            return *this;
        }
        if (words.empty()) return *this;
        MakeRoom(words.size());
        std::memcpy(mBlock.data() + mUsed, words.data(), words.size());
        mUsed += words.size();
        return *this;
    }
    PovText_cls& operator<<(char c) {
        MakeRoom(1);
        mBlock[mUsed++] = c;
        return *this;
    }
    template <class Number>
    requires std::is_arithmetic_v<Number> PovText_cls& operator<<(Number number) {
        MakeRoom(kLongest);
        char* begin = mBlock.data() + mUsed;
        mUsed += static_cast<size_t>(std::to_chars(begin, begin + kLongest, number).ptr - begin);
        return *this;
    }
    /// "<x,y,z>"
    template <class Number>
    PovText_cls& operator<<(const std::array<Number, 3>& vector) {
        return *this << '<' << vector[0] << ',' << vector[1] << ',' << vector[2] << '>';
    }
    /// Seven digits behind the point: several times as fast as the shortest form, and fine
    /// enough for places of a scene that lies near the origin.
    PovText_cls& Fixed(float number) {
        constexpr float kLargestFixed = 1e11F;
        if (!(number > -kLargestFixed && number < kLargestFixed)) return *this << number;
        MakeRoom(kLongest);
        mUsed = static_cast<size_t>(PutFixed(mBlock.data() + mUsed, number) - mBlock.data());
        return *this;
    }
    PovText_cls& Fixed(const std::array<float, 3>& vector) {
        return (*this << '<').Fixed(vector[0]).Comma().Fixed(vector[1]).Comma().Fixed(vector[2]) << '>';
    }

    /// Everything so far, of a text without a file.
    std::string_view Get() const { return {mBlock.data(), mUsed}; }
    void Clear() { mUsed = 0; }
    void Flush() {
        if (!mFile) return;
        mFile->Write(mBlock.data(), mUsed);
        mUsed = 0;
    }

  private:
    static constexpr size_t kLongest = 64;
    static constexpr size_t kBlock = 65536;

    PovText_cls& Comma() { return *this << ','; }
    void MakeRoom(size_t count) {
        if (mBlock.size() - mUsed < count) MakeBlock(count);
    }
    void MakeBlock(size_t count) {
        Flush();
        if (mBlock.size() - mUsed < count)
            mBlock.resize(std::max({kBlock, 2 * mBlock.size(), mUsed + count}));
    }
    static char* PutFixed(char* to, float number) {
        constexpr std::uint64_t kFraction = 10000000;
        if (number < 0.0F) *to++ = '-';
        const auto scaled = static_cast<std::uint64_t>(
            std::abs(static_cast<double>(number)) * static_cast<double>(kFraction) + 0.5);
        const std::uint64_t whole = scaled / kFraction;
        if (whole < 10) {
            *to++ = static_cast<char>('0' + whole);
        } else {
            to = std::to_chars(to, to + kLongest / 2, whole).ptr;
        }
        PutEight(to, static_cast<std::uint32_t>(scaled % kFraction));
        *to = '.';
        return to + 8;
    }
    /// Eight digits at once: split in halves, pairs and digits that lie side by side in one word.
    static void PutEight(char* to, std::uint32_t number) {
        constexpr std::uint64_t kTenThousand = 10000;
        std::uint64_t word = number / kTenThousand | (number % kTenThousand) << 32U;
        const std::uint64_t hundreds = ((word * 10486) >> 20U) & 0x0000007F0000007FU;
        word = hundreds | (word - hundreds * 100) << 16U;
        const std::uint64_t tens = ((word * 103) >> 10U) & 0x000F000F000F000FU;
        word = tens | (word - tens * 10) << 8U | 0x3030303030303030U;
        if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
        std::memcpy(to, &word, sizeof word);
    }

    OutputFile_cls* mFile = nullptr;
    std::vector<char> mBlock;
    size_t mUsed = 0;
};
