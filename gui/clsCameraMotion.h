#pragma once

#include <optional>

#include "render/clsPositionAndDirection.h"

class SnapData_cls;

/// How a camera moves under the mouse: plain functions from a pose to a pose. Units: pixels of a view of a
/// given size, y downwards; angles in degrees; lengths of the data. A pose that is no pose (no direction, a
/// number that is not finite) stays as it is.
namespace CameraMotion {

/// What a move needs to know of the view.
struct View {
    int width = 1;
    int height = 1;
    double angle = 35.0;  ///< across the shorter side
    bool orthographic = false;
    double orthoScale = 1.0;
};

/// Turns the camera about its anchor: across the whole shorter side by half a turn.
PositionAndDirection_cls Turn(const PositionAndDirection_cls& pose, const View& view, double dx, double dy);
/// Moves camera and anchor so that the anchor's plane follows the mouse.
PositionAndDirection_cls Pan(const PositionAndDirection_cls& pose, const View& view, double dx, double dy);
/// Comes nearer to the anchor by a tenth a step, or goes away.
PositionAndDirection_cls Dolly(const PositionAndDirection_cls& pose, double steps);
/// The pose seen along an axis instead of along -z, at the same distance: side along -x, top along -y.
PositionAndDirection_cls FromSide(const PositionAndDirection_cls& front);
PositionAndDirection_cls FromTop(const PositionAndDirection_cls& front);
/// The place of the particle under a pixel: the nearest of those closer than a few pixels. Nothing when there
/// is none, or the view is neither perspective nor orthographic.
std::optional<Vector3> Pick(const PositionAndDirection_cls& pose, const View& view,
                            const SnapData_cls& particles, double x, double y);

}  // namespace CameraMotion
