#include "render/clsColorLegend.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

/// The round distance (1, 2 or 5 times a power of ten) of which at most `count` fit into the length.
double RoundStep(double length, int count) {
    const double least = length / count;
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least * (1.0 - 1e-9)) return factor * power;
    }
    return 10.0 * power;
}

wxString Write(double value) {
    char buffer[32];
    // A value within float noise of zero is the tick at zero.
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value + 0.0, std::chars_format::general, 6);
    return wxString::FromAscii(buffer, static_cast<size_t>(end - buffer));
}

}  // namespace

ColorLegend_cls ColorLegend_cls::Of(const ColorCurve_cls& curve, const wxString& unit, size_t steps,
                                    int maxTicks) {
    ColorLegend_cls legend;
    const wxString quantity = ColorCurve_cls::GetDependName(curve.mDependType.mValue);
    if (!curve.IsOn() || quantity.empty() || steps < 2) return legend;
    legend.title = unit.empty() ? quantity : quantity + " [" + unit + "]";
    legend.colors.resize(4 * steps);
    for (size_t i = 0; i < steps; ++i) {
        const float position = static_cast<float>(i) / static_cast<float>(steps - 1);
        curve.GetColor4fNormal(&legend.colors[4 * i], position);
    }

    const double min = curve.mScalingMin.mValue;
    const double max = curve.mScalingMax.mValue;
    const double length = std::abs(max - min);
    if (!std::isfinite(length) || length == 0.0 || maxTicks < 2) return legend;
    const double step = RoundStep(length, maxTicks - 1);
    const double low = std::min(min, max);
    for (double k = std::ceil(low / step - 1e-6); k * step <= low + length * (1.0 + 1e-6); k += 1.0) {
        // A range far from zero may be narrower than what its numbers can tell apart.
        if (legend.ticks.size() > static_cast<size_t>(maxTicks)) break;
        legend.ticks.push_back({static_cast<float>((k * step - min) / (max - min)), Write(k * step)});
    }
    return legend;
}
