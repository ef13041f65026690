#include "data/clsAsciiReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <limits>

#include "data/clsSnapshotHeader.h"

namespace {

constexpr float kNotANumber = std::numeric_limits<float>::quiet_NaN();

bool IsSeparator(char c) {
    return c == ' ' || c == '\t' || c == ',' || c == ';' || c == '\r';
}

bool IsRecord(std::string_view line) {
    const auto first = std::find_if_not(line.begin(), line.end(), IsSeparator);
    return first != line.end() && *first != '#';
}

std::string_view TakeWord(std::string_view* line) {
    const auto begin = std::find_if_not(line->begin(), line->end(), IsSeparator);
    const auto end = std::find_if(begin, line->end(), IsSeparator);
    const std::string_view word(begin, end);
    *line = std::string_view(end, line->end());
    return word;
}

/// Parses the whole word; Fortran writes the exponent with a D.
bool ParseDouble(std::string_view word, double* value) {
    if (!word.empty() && word.front() == '+') word.remove_prefix(1);
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), *value);
    if (error != std::errc()) return false;
    const auto done = static_cast<size_t>(end - word.data());
    if (done == word.size()) return true;
    if ((word[done] != 'D' && word[done] != 'd') || word.size() > 63) return false;

    std::array<char, 64> copy{};
    std::copy(word.begin(), word.end(), copy.begin());
    copy[done] = 'e';
    const char* last = copy.data() + word.size();
    const auto again = std::from_chars(copy.data(), last, *value);
    return again.ec == std::errc() && again.ptr == last;
}

bool ParseFloat(std::string_view word, float* value) {
    double wide = 0.0;
    if (!ParseDouble(word, &wide) || !(std::abs(wide) <= std::numeric_limits<float>::max())) return false;
    *value = static_cast<float>(wide);
    return true;
}

bool ParseInteger(std::string_view word, int32_t* value) {
    if (!word.empty() && word.front() == '+') word.remove_prefix(1);
    const char* last = word.data() + word.size();
    const auto [end, error] = std::from_chars(word.data(), last, *value);
    if (error == std::errc() && end == last) return true;
    // Some codes write whole numbers as reals, "3.0" or "1e3".
    double wide = 0.0;
    if (!ParseDouble(word, &wide) || wide != std::floor(wide) || wide < INT32_MIN || wide > INT32_MAX)
        return false;
    *value = static_cast<int32_t>(wide);
    return true;
}

bool ReadFloats(std::string_view* line, int count, float* values, float otherwise) {
    bool good = true;
    for (int i = 0; i < count; ++i) {
        if (ParseFloat(TakeWord(line), &values[i])) continue;
        values[i] = otherwise;
        good = false;
    }
    return good;
}

bool ReadInteger(std::string_view* line, int32_t* value) {
    if (ParseInteger(TakeWord(line), value)) return true;
    *value = 0;
    return false;
}

}  // namespace

AsciiReader_cls::AsciiReader_cls(const GrammerBase_cls& grammer)
    : mCodes(grammer.GetBodyGrammer().begin(), grammer.GetBodyGrammer().end()) {}

BodyReport_cls AsciiReader_cls::Read(std::string_view text, int first,
                                     const ParticleTarget_cls& target) const {
    BodyReport_cls report;
    int particle = first;
    while (!text.empty() && particle < target.mCount) {
        const std::string_view line = TakeLine(&text);
        if (!IsRecord(line)) continue;
        if (!ReadRecord(line, static_cast<size_t>(particle), target)) ++report.mBadRecords;
        ++particle;
    }
    report.mRecords = particle - first;
    return report;
}

bool AsciiReader_cls::ReadRecord(std::string_view line, size_t particle,
                                 const ParticleTarget_cls& target) const {
    bool good = true;
    int32_t number = 0;
    for (const int code : mCodes) {
        switch (code) {
            case GrammerBase_cls::kXYZ:
                good &= ReadFloats(&line, 3, target.mPosition + 3 * particle, kNotANumber);
                break;
            case GrammerBase_cls::kVelocity:
                good &= ReadFloats(&line, 3, target.mVelocity + 3 * particle, 0.0F);
                break;
            case GrammerBase_cls::kRadius:
                good &= ReadFloats(&line, 1, target.mRadius + particle, 0.0F);
                break;
            case GrammerBase_cls::kValue1:
                good &= ReadFloats(&line, 1, target.mValue1 + particle, 0.0F);
                break;
            case GrammerBase_cls::kID:
                good &= ReadInteger(&line, &number);
                if (target.mID) target.mID[particle] = number;
                break;
            case GrammerBase_cls::kType:
                good &= ReadInteger(&line, &number);
                target.mType[particle] = ParticleTarget_cls::ClampType(number);
                break;
            default:
                for (unsigned int i = 0; i < GrammerBase_cls::BodyUnits(code); ++i) TakeWord(&line);
                break;
        }
    }
    return good;
}

std::string_view AsciiReader_cls::SkipLines(std::string_view text, unsigned int lines) {
    for (unsigned int i = 0; i < lines && !text.empty(); ++i) TakeLine(&text);
    return text;
}

int AsciiReader_cls::CountRecords(std::string_view text) {
    int records = 0;
    while (!text.empty() && records < INT_MAX) records += IsRecord(TakeLine(&text)) ? 1 : 0;
    return records;
}
