#include "render/clsLightProjection.h"

#include <algorithm>
#include <cmath>

#include "render/clsVector3.h"

namespace {

/// Not finite for a vector without length: a particle in the light's own place has none.
Vector3 Along(const Vector3& v) {
    const double length = std::sqrt(Dot(v, v));
    return {v[0] / length, v[1] / length, v[2] / length};
}

}  // namespace

bool LightProjection_cls::Place::IsFinite() const {
    return std::isfinite(mDepth) && std::ranges::all_of(mAcross, [](double a) { return std::isfinite(a); });
}

LightProjection_cls::LightProjection_cls(const Light& light)
    : mIsPlace(light[3] != 0.0F),
      mIsValid(std::ranges::all_of(light, [](float number) { return std::isfinite(number); })) {
    const double w = mIsPlace ? light[3] : 1.0;
    mLight = {light[0] / w, light[1] / w, light[2] / w};
    if (mIsPlace || !mIsValid) return;
    mIsValid = Dot(mLight, mLight) > 0.0;
    if (!mIsValid) return;
    mLight = Along(mLight);
    // Any vector that is not along the rays spans the plane across them.
    const Vector3 other = std::abs(mLight[0]) < 0.5 ? Vector3{1.0, 0.0, 0.0} : Vector3{0.0, 1.0, 0.0};
    mPlane[0] = Along(Cross(mLight, other));
    mPlane[1] = Cross(mLight, mPlane[0]);
}

LightProjection_cls::Place LightProjection_cls::Project(const float* position) const {
    const Vector3 p = {position[0], position[1], position[2]};
    if (!mIsPlace) return {{Dot(p, mPlane[0]), Dot(p, mPlane[1]), 0.0}, static_cast<float>(-Dot(p, mLight))};
    const Vector3 ray = {p[0] - mLight[0], p[1] - mLight[1], p[2] - mLight[2]};
    return {Along(ray), static_cast<float>(std::sqrt(Dot(ray, ray)))};
}

double LightProjection_cls::ProjectRadius(double depth, double radius) const {
    if (!mIsPlace) return radius;
    if (depth <= radius) return 0.0;
    // The chord of the angle whose sine this is: how far apart two unit vectors are.
    const double sine = radius / depth;
    return sine * std::sqrt(2.0 / (1.0 + std::sqrt(1.0 - sine * sine)));
}
