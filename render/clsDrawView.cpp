#include "render/clsDrawView.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "interp/clsSnapData.h"
#include "render/clsOpenGL.h"

namespace {

constexpr int kSamples = 64;
/// Data whose distance from 0 is this many times its extent get an origin of their own.
constexpr double kFarAway = 100.0;

/// Lengths between these powers of two are left as they are.
constexpr int kSmallestPower = -20;
constexpr int kLargestPower = 30;
/// Powers whose inverses are floats, too.
constexpr int kFloatPowers = 126;

/// Where about the data lie, from evenly picked particles.
struct Region {
    Vector3 middle{};
    double extent = 0.0;    ///< along the longest axis
    double distance = 0.0;  ///< of most particles from the camera, whatever strays
};

Region RegionOf(const SnapData_cls& state, const Vector3& camera) {
    Vector3 sum{};
    Vector3 low{1e300, 1e300, 1e300};
    Vector3 high{-1e300, -1e300, -1e300};
    std::vector<double> distances;
    const long long stride = state.GetStride();
    const long long visited = (state.GetCount() + stride - 1) / stride;
    const long long pick = std::max(visited / kSamples, 1LL) * stride;
    for (long long i = 0; i < state.GetCount(); i += pick) {
        const float* p = state.GetPosition() + 3 * i;
        if (!std::isfinite(p[0] + p[1] + p[2])) continue;
        Vector3 way{};
        for (size_t k = 0; k < 3; ++k) {
            way[k] = static_cast<double>(p[k]) - camera[k];
            sum[k] += static_cast<double>(p[k]);
            low[k] = std::min(low[k], static_cast<double>(p[k]));
            high[k] = std::max(high[k], static_cast<double>(p[k]));
        }
        distances.push_back(Length(way));
    }
    Region region;
    if (distances.empty()) return region;
    const auto median = distances.begin() + static_cast<ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), median, distances.end());
    region.distance = *median;
    for (size_t k = 0; k < 3; ++k) {
        region.middle[k] = sum[k] / static_cast<double>(distances.size());
        region.extent = std::max(region.extent, high[k] - low[k]);
    }
    return region;
}

/// 0 when the data lie around it.
std::array<float, 3> OriginOf(const Region& region) {
    const auto& m = region.middle;
    const double distance = std::max({std::abs(m[0]), std::abs(m[1]), std::abs(m[2])});
    if (distance <= kFarAway * region.extent) return {};
    return {static_cast<float>(m[0]), static_cast<float>(m[1]), static_cast<float>(m[2])};
}

float UnitOf(double length) {
    if (!(length > 0.0) || !std::isfinite(length)) return 1.0F;
    const int power = std::ilogb(length);
    if (power >= kSmallestPower && power <= kLargestPower) return 1.0F;
    return std::ldexp(1.0F, -std::clamp(power, -kFloatPowers, kFloatPowers));
}

std::array<float, 3> FloatUnit(const Vector3& v) {
    const Vector3 unit = Unit(v);
    return {static_cast<float>(unit[0]), static_cast<float>(unit[1]), static_cast<float>(unit[2])};
}

}  // namespace

DrawView_cls DrawView_cls::FromGL(const Vector3& camera, const SnapData_cls& state) {
    DrawView_cls view;
    const Region region = RegionOf(state, camera);
    view.origin = OriginOf(region);
    view.unit = UnitOf(region.distance);
    const auto unit = static_cast<double>(view.unit);
    std::array<double, 16> m{};
    glGetDoublev(GL_MODELVIEW_MATRIX, m.data());
    for (size_t row = 0; row < 3; ++row) {
        double moved = 0.0;
        for (size_t k = 0; k < 3; ++k)
            moved -= m[4 * k + row] * (camera[k] - static_cast<double>(view.origin[k]));
        m[12 + row] = moved * unit;
    }
    for (size_t i = 0; i < 16; ++i) view.modelView[i] = static_cast<float>(m[i]);
    view.scale = static_cast<float>(std::hypot(m[0], m[4], m[8]));
    view.right = FloatUnit({m[0], m[4], m[8]});
    view.up = FloatUnit({m[1], m[5], m[9]});
    view.forward = FloatUnit({-m[2], -m[6], -m[10]});

    glGetFloatv(GL_PROJECTION_MATRIX, view.projection.data());
    view.isOrthographic = view.projection[11] == 0.0F;
    // The same picture of places that are sent in the unit.
    if (view.isOrthographic) {
        for (const size_t k : {0U, 5U, 10U}) view.projection[k] /= view.unit;
    } else {
        view.projection[14] *= view.unit;
    }
    for (size_t column = 0; column < 4; ++column) {
        for (size_t row = 0; row < 4; ++row) {
            float sum = 0.0F;
            for (size_t k = 0; k < 4; ++k)
                sum += view.projection[4 * k + row] * view.modelView[4 * column + k];
            view.clip[4 * column + row] = sum;
        }
    }
    glGetIntegerv(GL_VIEWPORT, view.viewport.data());
    const float x = 0.5F * view.projection[0] * static_cast<float>(view.viewport[2]);
    const float y = 0.5F * view.projection[5] * static_cast<float>(view.viewport[3]);
    view.pixelsPerUnit = x;
    view.hasSquarePixels = std::abs(x - y) <= 1e-4F * std::abs(x);
    std::array<float, 2> range{};
    glGetFloatv(GL_ALIASED_POINT_SIZE_RANGE, range.data());
    view.largestPoint = range[1];
    return view;
}

void DrawView_cls::LoadOnGL() const {
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(projection.data());
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixf(modelView.data());
}

std::array<float, 3> DrawView_cls::EyeOf(const Vector3& place) const {
    std::array<float, 3> eye{};
    for (size_t row = 0; row < 3; ++row) {
        double sum = static_cast<double>(modelView[12 + row]);
        for (size_t k = 0; k < 3; ++k)
            sum += static_cast<double>(modelView[4 * k + row]) * (place[k] - static_cast<double>(origin[k])) *
                   static_cast<double>(unit);
        eye[row] = static_cast<float>(sum);
    }
    return eye;
}
