#include "render/clsValueHistogram.h"

#include <algorithm>
#include <cmath>

ValueHistogram_cls::ValueHistogram_cls(std::vector<float> values) : mValues(std::move(values)) {
    std::erase_if(mValues, [](float value) { return !std::isfinite(value); });
    if (mValues.empty()) return;
    const auto [min, max] = std::minmax_element(mValues.begin(), mValues.end());
    mRange = {*min, *max};
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
    for (const float value : mValues) {
        const double part = (static_cast<double>(value) - range.min) / length;
        if (part < 0.0 || part > 1.0) continue;
        bins[std::min(static_cast<size_t>(part * static_cast<double>(count)), count - 1)] += 1.0F;
    }
    const float fullest = *std::max_element(bins.begin(), bins.end());
    if (fullest == 0.0F) return bins;
    for (float& bin : bins) bin = std::sqrt(bin / fullest);
    return bins;
}
