#include "render/clsValueHistogram.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

ValueHistogram_cls::ValueHistogram_cls(std::vector<float> values) : mValues(std::move(values)) {
    const auto isOdd = [](float value) { return !std::isfinite(value); };
    // Few data have any, and leaving them out moves all the others.
    if (std::any_of(mValues.begin(), mValues.end(), isOdd)) std::erase_if(mValues, isOdd);
    if (mValues.empty()) return;
    mRange = {mValues.front(), mValues.front()};
    for (const float value : mValues) {
        mRange.min = std::min(mRange.min, value);
        mRange.max = std::max(mRange.max, value);
    }
}

ValueHistogram_cls::Range ValueHistogram_cls::GetPartRange(double low, double high) const {
    if (mValues.empty()) return mRange;
    std::vector<float> values = mValues;
    const auto at = [&values](double part) {
        const double last = static_cast<double>(values.size() - 1);
        const auto place = values.begin() + static_cast<std::ptrdiff_t>(std::clamp(part, 0.0, 1.0) * last);
        std::nth_element(values.begin(), place, values.end());
        return *place;
    };
    const float min = at(low);
    return {min, at(high)};
}

std::vector<float> ValueHistogram_cls::GetBins(Range range, size_t count) const {
    std::vector<float> bins(count, 0.0F);
    const double length = static_cast<double>(range.max) - range.min;
    if (count == 0 || !(length != 0.0) || !std::isfinite(length)) return bins;
    const auto [least, most] = std::minmax(range.min, range.max);
    const double binsPerValue = static_cast<double>(count) / length;
    std::vector<std::uint32_t> numbers(count);
    for (const float value : mValues) {
        if (value < least || value > most) continue;
        const double place = (static_cast<double>(value) - range.min) * binsPerValue;
        ++numbers[std::min(static_cast<size_t>(place), count - 1)];
    }
    const std::uint32_t fullest = *std::max_element(numbers.begin(), numbers.end());
    if (fullest == 0) return bins;
    std::transform(numbers.begin(), numbers.end(), bins.begin(), [fullest](std::uint32_t number) {
        return std::sqrt(static_cast<float>(number) / static_cast<float>(fullest));
    });
    return bins;
}
