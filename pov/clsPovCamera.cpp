#include "pov/clsPovCamera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pov/clsPovText.h"
#include "render/clsPanelSettings.h"
#include "scene/clsScenePass.h"

namespace {

/// Distances of the camera from its anchor that need no other scale.
constexpr double kNearestPlain = 0.3;
constexpr double kFarthestPlain = 1000.0;
/// An anchor this many distances away from the origin is moved there.
constexpr double kFarAway = 1000.0;

Vector3 UnitOr(const Vector3& a, const Vector3& fallback) {
    const Vector3 unit = Unit(a);
    return unit == Vector3{} ? fallback : unit;
}

Vector3 Times(const Vector3& a, double factor) {
    return {a[0] * factor, a[1] * factor, a[2] * factor};
}

/// Any unit vector across another one.
Vector3 Across(const Vector3& a) {
    return Unit(Cross(a, std::abs(a[1]) < 0.9 ? Vector3{0.0, 1.0, 0.0} : Vector3{1.0, 0.0, 0.0}));
}

}  // namespace

PovSpace_cls PovSpace_cls::Of(const PositionAndDirection_cls& camera) {
    const Vector3 way = Add(camera.mPosition, camera.mAnchor, -1.0);
    double distance = Length(way);
    if (!(distance > 0.0) || !std::isfinite(distance)) distance = 1.0;
    PovSpace_cls space;
    if (distance < kNearestPlain || distance > kFarthestPlain) space.scale = 10.0 / distance;
    if (Length(camera.mAnchor) > kFarAway * distance) space.origin = camera.mAnchor;
    return space;
}

PovCamera_cls::PovCamera_cls(const SceneView_cls& view, const PovSpace_cls& space)
    : mGeometry(view.mPanel.mGeometry.mValue), mWidth(view.mWidth), mHeight(view.mHeight) {
    const PositionAndDirection_cls& pose = view.mCamera.mPose;
    wxString toldElsewhere;
    mAngle = LimitAngle(view.mCamera.mAngle, mGeometry, &toldElsewhere);
    mPosition = space.Of(pose.mPosition);
    mDirection = UnitOr(pose.mDirection, {0.0, 0.0, -1.0});
    mRight = UnitOr(Cross(mDirection, pose.mUp), Across(mDirection));
    mUp = Cross(mRight, mDirection);

    const DepthRange_cls range = DepthRange_cls::Of(view.mPanel, pose);
    mNear = range.mNear * space.scale;
    mFar = range.mFar * space.scale;
    GLPerspective_cls projection(mWidth, mHeight, mAngle, range.mNear, range.mFar);
    projection.SetOrthoScale(view.mPanel.mOrthoScale.mValue);
    if (IsRound()) {
        const int across = mGeometry == PanelSettings_cls::kFisheye ? std::min(mWidth, mHeight) : mWidth;
        mPixelGrowing = mAngle * std::numbers::pi / 180.0 / across;
    } else if (mGeometry == PanelSettings_cls::kOrthographic) {
        const auto extent = projection.GetOrthoExtent(pose);
        mHalfWidth = extent.x * space.scale;
        mHalfHeight = extent.y * space.scale;
        mPixelFixed = 2.0 * mHalfHeight / mHeight;
        mBehind = range.mOrtho * space.scale;
        mNear = -mBehind;
        mFar = mBehind;
    } else {
        // The projection covers a square of the longer side; the picture is its middle.
        const int side = std::max(mWidth, mHeight);
        const double tangent = std::tan(projection.GetProjectionAngle() * std::numbers::pi / 360.0);
        mHalfWidth = tangent * mWidth / side;
        mHalfHeight = tangent * mHeight / side;
        mPixelGrowing = 2.0 * tangent / side;
    }
}

bool PovCamera_cls::IsRound() const {
    return mGeometry == PanelSettings_cls::kFisheye || mGeometry == PanelSettings_cls::kPanoramic;
}

double PovCamera_cls::GetDepth(const Vector3& point) const {
    const Vector3 way = Add(point, mPosition, -1.0);
    return IsRound() ? Length(way) : Dot(way, mDirection);
}

PovCamera_cls::Facing PovCamera_cls::GetFacing(const Vector3& point) const {
    if (!IsRound()) return {mRight, mUp};
    const Vector3 towards = UnitOr(Add(point, mPosition, -1.0), mDirection);
    const Vector3 right = UnitOr(Cross(towards, mUp), mRight);
    return {right, Cross(right, towards)};
}

void PovCamera_cls::Write(PovText_cls& text) const {
    const auto arguments = [&](const Vector3& location, double right, double up) {
        text << location << ", " << mDirection << ", " << Times(mRight, right) << ", " << Times(mUp, up);
    };
    switch (mGeometry) {
        case PanelSettings_cls::kOrthographic: {
            // Rays start at the near end of the box.
            const Vector3 start = Add(mPosition, mDirection, -mBehind);
            text << "OrthographicView(";
            arguments(start, 2.0 * mHalfWidth, 2.0 * mHalfHeight);
            break;
        }
        case PanelSettings_cls::kFisheye: {
            const double across = std::min(mWidth, mHeight);
            text << "FisheyeView(";
            arguments(mPosition, mWidth / across, mHeight / across);
            text << ", " << mAngle;
            break;
        }
        case PanelSettings_cls::kPanoramic:
            text << "PanoramicView(";
            arguments(mPosition, 1.0, 1.0);
            text << ", " << mAngle << ", " << std::min(180.0, mAngle * mHeight / mWidth);
            break;
        default:
            text << "PerspectiveView(";
            arguments(mPosition, 2.0 * mHalfWidth, 2.0 * mHalfHeight);
            break;
    }
    text << ")\n";
}
