#pragma once

#include <span>

#include "render/clsPositionAndDirection.h"

/// A sphere around the bulk of the particles: a few that flew away do not shrink the picture.
struct DataBounds_cls {
    Vector3 mCentre{0.0, 0.0, 0.0};
    double mRadius = 1.0;

    /// Three floats a particle, of which particles 0, stride, 2 stride, ... are looked at; those that are not
    /// finite are left out. No particles: the unit sphere.
    static DataBounds_cls Of(std::span<const float> positions, size_t stride = 1);
};

/// A camera in front of the x-y plane, y up, that shows the sphere whole in a picture with this angle
/// (degrees) across its shorter side.
PositionAndDirection_cls FitCamera(const DataBounds_cls& bounds, double angle);
