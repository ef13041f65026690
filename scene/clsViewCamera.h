#pragma once

#include <wx/string.h>

#include <optional>

#include "render/clsFitToData.h"
#include "render/clsPositionAndDirection.h"

class CameraPath_cls;
class PanelSettings_cls;
class SnapData_cls;

/// Where a view looks from, and its angle in degrees.
struct ViewCamera_cls {
    PositionAndDirection_cls mPose;
    double mAngle = 35.0;
};

/// PanelSettings_cls::mDisplayMode: whose camera a panel shows.
enum class DisplayMode : unsigned int { kFollowsPath = 0, kFree = 1 };

/// Where the bulk of the particles lies.
DataBounds_cls BoundsOf(const SnapData_cls& state);
/// The camera that shows these bounds whole in a panel of this geometry and angle.
PositionAndDirection_cls FitPanel(const DataBounds_cls& bounds, const PanelSettings_cls& panel);
inline PositionAndDirection_cls FitPanel(const SnapData_cls& state, const PanelSettings_cls& panel) {
    return FitPanel(BoundsOf(state), panel);
}

/// True where the panel does not follow the camera path, or nobody has touched that yet.
bool IsCameraFree(const CameraPath_cls& path, const PanelSettings_cls& panel);

/// The camera of a panel at a normalised time. A panel that follows the camera path takes its pose and angle
/// from there. A free one takes `free`, if there is one, and the panel's own angle.
ViewCamera_cls ChooseCamera(const CameraPath_cls& path, const PanelSettings_cls& panel, double time,
                            const std::optional<PositionAndDirection_cls>& free);

/// The angle that a geometry can show: below 120 degrees in perspective, to which a line is added to the
/// message; 360 for fisheye and panoramic ones. Not a number, or nothing: the smallest angle.
double LimitAngle(double angle, unsigned int geometry, wxString* message);

/// Depths that a view is clipped to, in data lengths.
/// The panel's own, as they stand, when somebody has set them. Their defaults suit a camera between 0.3 and
/// 100 lengths from its anchor, and are scaled with the distance beyond that, so that data of any unit can be
/// seen. The orthographic depth, which has no setting, is scaled likewise.
struct DepthRange_cls {
    double mNear;
    double mFar;
    double mOrtho;

    static DepthRange_cls Of(const PanelSettings_cls& panel, const PositionAndDirection_cls& camera);
};
