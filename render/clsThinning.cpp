#include "render/clsThinning.h"

#include <algorithm>
#include <cmath>

float Thinning_cls::GetRadiusFactor(int step, Form form) {
    const double n = std::max(step, 1);
    const double slope = 0.2 + 0.6 * n / 100.0;
    return static_cast<float>(
        std::sqrt(1.0 + (n - 1.0) * (form == Form::Clamped ? std::min(slope, 0.8) : slope)));
}

float Thinning_cls::GetAlphaFactor(int step, Form form) {
    const double n = std::max(step, 1);
    const double slope = 0.8 - 0.6 * n / 100.0;
    return static_cast<float>(1.0 + (n - 1.0) * (form == Form::Clamped ? std::max(slope, 0.2) : slope));
}
