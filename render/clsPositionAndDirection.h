#pragma once

#include "render/clsVector3.h"

/// A camera pose. Direction and up are unit vectors; the anchor is the point that the camera turns about.
/// Units: the data's own lengths.
struct PositionAndDirection_cls {
    Vector3 mPosition{0.0, 0.0, 10.0};
    Vector3 mDirection{0.0, 0.0, -1.0};
    Vector3 mUp{0.0, 1.0, 0.0};
    Vector3 mAnchor{0.0, 0.0, 0.0};

    /// Whatever length the direction has been given; straight ahead for one without any.
    Vector3 GetUnitDirection() const;
    /// Multiplies the current matrix by the view of this pose.
    void LookOnGL() const;
};
