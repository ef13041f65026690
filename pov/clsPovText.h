#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "seam/clsOutputFile.h"

/// Scene text on its way to a file: words, and numbers in their shortest exact form, whatever the language of
/// the process. Gathered in one block, so that a number costs little more than its digits.
/// Threads: one at a time. Failure: the file keeps the first error.
class PovText_cls {
  public:
    explicit PovText_cls(OutputFile_cls& file) : mFile(file) {}
    ~PovText_cls() { Flush(); }
    PovText_cls(const PovText_cls&) = delete;
    PovText_cls& operator=(const PovText_cls&) = delete;

    PovText_cls& operator<<(std::string_view words) {
        if (words.size() > kLongest) {
            Flush();
            mFile.Write(words.data(), words.size());
            return *this;
        }
        MakeRoom();
        mEnd += words.copy(mEnd, words.size());
        return *this;
    }
    PovText_cls& operator<<(char c) {
        MakeRoom();
        *mEnd++ = c;
        return *this;
    }
    template <class Number>
    requires std::is_arithmetic_v<Number> PovText_cls& operator<<(Number number) {
        MakeRoom();
        mEnd = std::to_chars(mEnd, mEnd + kLongest, number).ptr;
        return *this;
    }
    /// "<x,y,z>"
    template <class Number>
    PovText_cls& operator<<(const std::array<Number, 3>& vector) {
        return *this << '<' << vector[0] << ',' << vector[1] << ',' << vector[2] << '>';
    }
    /// Seven digits behind the point: several times as fast as the shortest form, and fine
    /// enough for places of a scene that lies near the origin.
    void Fixed(double number) {
        constexpr double kLargestFixed = 1e11;
        constexpr std::int64_t kFraction = 10000000;
        if (!(number > -kLargestFixed && number < kLargestFixed)) {
            *this << number;
            return;
        }
        MakeRoom();
        if (number < 0.0) *mEnd++ = '-';
        const auto scaled = static_cast<std::int64_t>(std::abs(number) * kFraction + 0.5);
        mEnd = std::to_chars(mEnd, mEnd + kLongest, scaled / kFraction).ptr;
        // A one in front keeps the zeros behind the point; the point then takes its place.
        char* point = mEnd;
        mEnd = std::to_chars(mEnd, mEnd + kLongest, scaled % kFraction + kFraction).ptr;
        *point = '.';
    }
    PovText_cls& Fixed(const std::array<float, 3>& vector) {
        *this << '<';
        for (size_t i = 0; i < 3; ++i) {
            if (i > 0) *mEnd++ = ',';
            Fixed(static_cast<double>(vector[i]));
        }
        return *this << '>';
    }
    void Flush() {
        mFile.Write(mBlock.data(), static_cast<size_t>(mEnd - mBlock.data()));
        mEnd = mBlock.data();
    }

  private:
    static constexpr size_t kLongest = 64;
    static constexpr size_t kBlock = 65536;

    void MakeRoom() {
        if (mEnd > mBlock.data() + kBlock) Flush();
    }

    OutputFile_cls& mFile;
    std::array<char, kBlock + kLongest> mBlock;
    char* mEnd = mBlock.data();
};
