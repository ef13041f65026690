#include "scene/clsViewCamera.h"

#include <algorithm>
#include <cmath>

#include "interp/clsSnapData.h"
#include "render/clsGLPerspective.h"
#include "render/clsPanelSettings.h"
#include "scene/clsCameraPath.h"

namespace {

constexpr double kSmallestAngle = 0.01;
constexpr double kMostPerspective = 120.0;
constexpr double kMostRound = 360.0;

/// Distances from the anchor that the default depths are made for.
constexpr double kNearestCamera = 0.3;
constexpr double kFarthestCamera = 100.0;
constexpr float kDefaultDepthMin = 0.03F;
constexpr float kDefaultDepthMax = 5000.0F;

}  // namespace

DataBounds_cls BoundsOf(const SnapData_cls& state) {
    return DataBounds_cls::Of({state.GetPosition(), 3 * static_cast<size_t>(state.GetCount())},
                              static_cast<size_t>(state.GetStride()));
}

PositionAndDirection_cls FitPanel(const DataBounds_cls& bounds, const PanelSettings_cls& panel) {
    if (panel.mGeometry.mValue != PanelSettings_cls::kOrthographic)
        return FitCamera(bounds, std::clamp<double>(panel.mPersAngle.mValue, 1.0, kMostPerspective));
    PositionAndDirection_cls camera = FitCamera(bounds, 60.0);
    // Orthographic views show half the distance to the anchor above and below it, like this angle.
    camera.mPosition[2] = bounds.mCentre[2] + (camera.mPosition[2] - bounds.mCentre[2]) *
                                                  GLPerspective_cls::UsableScale(panel.mOrthoScale.mValue);
    return camera;
}

bool IsCameraFree(const CameraPath_cls& path, const PanelSettings_cls& panel) {
    return panel.mDisplayMode.mValue != static_cast<unsigned int>(DisplayMode::kFollowsPath) ||
           path.IsUntouched();
}

ViewCamera_cls ChooseCamera(const CameraPath_cls& path, const PanelSettings_cls& panel, double time,
                            const std::optional<PositionAndDirection_cls>& free) {
    if (!IsCameraFree(path, panel)) return {path.GetPose(time), path.GetAngle(time)};
    return {free.value_or(path.GetPose(time)), static_cast<double>(panel.mPersAngle.mValue)};
}

double LimitAngle(double angle, unsigned int geometry, wxString* message) {
    if (!(angle > kSmallestAngle)) return kSmallestAngle;
    if (geometry == PanelSettings_cls::kPerspective && angle >= kMostPerspective) {
        *message += "View angle is limited to 120 deg in perspective view.\n";
        return kMostPerspective;
    }
    return std::min(angle, kMostRound);
}

DepthRange_cls DepthRange_cls::Of(const PanelSettings_cls& panel, const PositionAndDirection_cls& camera) {
    double distance =
        std::hypot(camera.mPosition[0] - camera.mAnchor[0], camera.mPosition[1] - camera.mAnchor[1],
                   camera.mPosition[2] - camera.mAnchor[2]);
    if (!(distance > 0.0) || !std::isfinite(distance)) distance = 1.0;
    const double scale = distance / std::clamp(distance, kNearestCamera, kFarthestCamera);
    const double ortho = GLPerspective_cls::kOrthoDepth * scale;
    const double nearest = panel.mDepthMin.mValue;
    const double farthest = panel.mDepthMax.mValue;
    const bool untouched =
        panel.mDepthMin.mValue == kDefaultDepthMin && panel.mDepthMax.mValue == kDefaultDepthMax;
    const bool usable = nearest > 0.0 && farthest > nearest && std::isfinite(farthest);
    if (usable && !untouched) return {nearest, farthest, ortho};
    return {kDefaultDepthMin * scale, kDefaultDepthMax * scale, ortho};
}
