#include "render/clsFitToData.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

/// More particles are sampled evenly: the bounds need no more.
constexpr size_t kMaxSamples = 200000;
/// The share of particles that must lie inside.
constexpr double kInside = 0.995;
constexpr double kFitMargin = 1.05;

}  // namespace

DataBounds_cls DataBounds_cls::Of(std::span<const float> positions, size_t stride) {
    std::vector<Vector3> samples;
    const size_t count = positions.size() / 3;
    const size_t step = stride * std::max<size_t>(1, (count / stride + kMaxSamples - 1) / kMaxSamples);
    for (size_t i = 0; i < count; i += step) {
        const float* p = &positions[3 * i];
        if (std::isfinite(p[0]) && std::isfinite(p[1]) && std::isfinite(p[2])) {
            samples.push_back(
                {static_cast<double>(p[0]), static_cast<double>(p[1]), static_cast<double>(p[2])});
        }
    }
    DataBounds_cls bounds;
    if (samples.empty()) return bounds;

    const auto rank = [&](double share) {
        return static_cast<ptrdiff_t>(std::lround(share * static_cast<double>(samples.size() - 1)));
    };
    for (size_t axis = 0; axis < 3; ++axis) {
        const auto less = [axis](const Vector3& a, const Vector3& b) { return a[axis] < b[axis]; };
        const auto low = samples.begin() + rank(1.0 - kInside);
        std::nth_element(samples.begin(), low, samples.end(), less);
        const double lowest = (*low)[axis];
        const auto high = samples.begin() + rank(kInside);
        std::nth_element(samples.begin(), high, samples.end(), less);
        bounds.mCentre[axis] = 0.5 * (lowest + (*high)[axis]);
    }
    std::vector<double> distances;
    distances.reserve(samples.size());
    for (const Vector3& p : samples) {
        distances.push_back(
            std::hypot(p[0] - bounds.mCentre[0], p[1] - bounds.mCentre[1], p[2] - bounds.mCentre[2]));
    }
    const auto far = distances.begin() + rank(kInside);
    std::nth_element(distances.begin(), far, distances.end());
    if (*far > 0.0) bounds.mRadius = *far;
    return bounds;
}

PositionAndDirection_cls FitCamera(const DataBounds_cls& bounds, double angle) {
    PositionAndDirection_cls camera;
    camera.mAnchor = bounds.mCentre;
    camera.mPosition = bounds.mCentre;
    camera.mPosition[2] += kFitMargin * bounds.mRadius / std::sin(angle * std::numbers::pi / 360.0);
    return camera;
}
