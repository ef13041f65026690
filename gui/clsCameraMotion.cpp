#include "gui/clsCameraMotion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "interp/clsSnapData.h"

namespace CameraMotion {

namespace {

constexpr double kDollyFactor = 0.9;
constexpr double kPickPixels = 16.0;
/// Steps of the wheel that a single event may stand for.
constexpr double kMaxSteps = 200.0;

bool IsFinite(const Vector3& v) {
    return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

/// Rotation of a vector about a unit axis (Rodrigues).
Vector3 Rotate(const Vector3& v, const Vector3& axis, double angle) {
    const double c = std::cos(angle);
    return Add(Add(Add({0, 0, 0}, v, c), Cross(axis, v), std::sin(angle)), axis, Dot(axis, v) * (1.0 - c));
}

/// Right, up and forward of a camera, of length 1 and at right angles.
struct Axes {
    Vector3 right;
    Vector3 up;
    Vector3 forward;
};

std::optional<Axes> AxesOf(const PositionAndDirection_cls& pose) {
    const Vector3 forward = Unit(pose.mDirection);
    const Vector3 right = Unit(Cross(forward, pose.mUp));
    if (right == Vector3{} || !IsFinite(pose.mPosition) || !IsFinite(pose.mAnchor)) return std::nullopt;
    return Axes{right, Cross(right, forward), forward};
}

double AnchorDistance(const PositionAndDirection_cls& pose) {
    const Vector3 way = Add(pose.mAnchor, pose.mPosition, -1.0);
    return std::sqrt(Dot(way, way));
}

/// A length in the anchor's plane that covers one pixel.
double LengthOfPixel(const PositionAndDirection_cls& pose, const View& view) {
    const double distance = AnchorDistance(pose);
    if (view.orthographic) return distance / (view.orthoScale * std::max(view.height, 1));
    const double half = std::tan(std::clamp(view.angle, 0.01, 170.0) * std::numbers::pi / 360.0);
    return 2.0 * distance * half / std::max(std::min(view.width, view.height), 1);
}

PositionAndDirection_cls Rotated(const PositionAndDirection_cls& pose, const Vector3& axis, double angle) {
    const Vector3 arm = Add(pose.mPosition, pose.mAnchor, -1.0);
    return {.mPosition = Add(pose.mAnchor, Rotate(arm, axis, angle)),
            .mDirection = Rotate(pose.mDirection, axis, angle),
            .mUp = Rotate(pose.mUp, axis, angle),
            .mAnchor = pose.mAnchor};
}

}  // namespace

PositionAndDirection_cls Turn(const PositionAndDirection_cls& pose, const View& view, double dx, double dy) {
    const auto axes = AxesOf(pose);
    if (!axes) return pose;
    const double radiansPerPixel = std::numbers::pi / std::max(std::min(view.width, view.height), 1);
    // About the camera's own axes: no pole at which the view would flip.
    PositionAndDirection_cls turned = Rotated(pose, axes->up, -dx * radiansPerPixel);
    turned = Rotated(turned, Unit(Cross(turned.mDirection, turned.mUp)), -dy * radiansPerPixel);
    turned.mDirection = Unit(turned.mDirection);
    turned.mUp = Unit(turned.mUp);
    return turned;
}

PositionAndDirection_cls Pan(const PositionAndDirection_cls& pose, const View& view, double dx, double dy) {
    const auto axes = AxesOf(pose);
    if (!axes) return pose;
    const double length = LengthOfPixel(pose, view);
    const Vector3 way = Add(Add({0, 0, 0}, axes->right, -dx * length), axes->up, dy * length);
    PositionAndDirection_cls moved = pose;
    moved.mPosition = Add(pose.mPosition, way);
    moved.mAnchor = Add(pose.mAnchor, way);
    return moved;
}

PositionAndDirection_cls Dolly(const PositionAndDirection_cls& pose, double steps) {
    const Vector3 arm = Add(pose.mPosition, pose.mAnchor, -1.0);
    const double factor = std::pow(kDollyFactor, std::clamp(steps, -kMaxSteps, kMaxSteps));
    PositionAndDirection_cls moved = pose;
    moved.mPosition = Add(pose.mAnchor, arm, factor);
    const double distance = AnchorDistance(moved);
    return std::isfinite(distance) && distance > 0.0 ? moved : pose;
}

PositionAndDirection_cls FromSide(const PositionAndDirection_cls& front) {
    return Rotated(front, {0.0, 1.0, 0.0}, std::numbers::pi / 2.0);
}

PositionAndDirection_cls FromTop(const PositionAndDirection_cls& front) {
    return Rotated(front, {1.0, 0.0, 0.0}, -std::numbers::pi / 2.0);
}

std::optional<Vector3> Pick(const PositionAndDirection_cls& pose, const View& view,
                            const SnapData_cls& particles, double x, double y) {
    const auto axes = AxesOf(pose);
    if (!axes || particles.GetCount() == 0) return std::nullopt;
    const double atAnchor = LengthOfPixel(pose, view) / std::max(AnchorDistance(pose), 1e-300);
    const double wantedX = x - 0.5 * view.width;
    const double wantedY = 0.5 * view.height - y;
    std::optional<Vector3> best;
    double bestDepth = 0.0;
    const float* positions = particles.GetPosition();
    for (int i = 0; i < particles.GetCount(); i += particles.GetStride()) {
        const float* p = positions + 3 * static_cast<ptrdiff_t>(i);
        const Vector3 place = {p[0], p[1], p[2]};
        const Vector3 way = Add(place, pose.mPosition, -1.0);
        const double depth = Dot(way, axes->forward);
        if (!(depth > 0.0) && !view.orthographic) continue;
        if (best && depth >= bestDepth) continue;
        const double length = view.orthographic ? LengthOfPixel(pose, view) : depth * atAnchor;
        const double offX = Dot(way, axes->right) / length - wantedX;
        const double offY = Dot(way, axes->up) / length - wantedY;
        if (offX * offX + offY * offY > kPickPixels * kPickPixels) continue;
        best = place;
        bestDepth = depth;
    }
    return best;
}

}  // namespace CameraMotion
