#pragma once

#include <array>

#include "render/clsPositionAndDirection.h"

class SnapData_cls;

/// From where and through which lens a frame's particles are seen, as plain numbers.
/// Positions are sent to OpenGL less an origin: data far from 0 would lose the digits that tell its particles
/// apart. The origin is 0 where that makes no difference. Data whose lengths are very large or small, as
/// those in centimetres of a galaxy are, are also sent in a unit of their own: shaders square lengths, and
/// floats end at 1e38. A unit is a power of two, so that it costs no digit, and 1 for all usual data.
/// Made once for a draw. Threads: FromGL() on the thread of the context. Units: data lengths, pixels.
struct DrawView_cls {
    /// Takes the current viewport and matrices over; the camera's place replaces the model-view matrix's own,
    /// which has too few digits for large numbers.
    static DrawView_cls FromGL(const Vector3& camera, const SnapData_cls& state);

    /// A place as OpenGL is told it.
    std::array<float, 3> Relative(const float* position) const {
        return {(position[0] - origin[0]) * unit, (position[1] - origin[1]) * unit,
                (position[2] - origin[2]) * unit};
    }
    /// Loads both matrices for relative places; the caller has pushed them.
    void LoadOnGL() const;
    /// Where a place of the data is seen from the eye, in eye lengths.
    std::array<float, 3> EyeOf(const Vector3& place) const;

    std::array<float, 3> origin{};
    float unit = 1.0F;                   ///< lengths as OpenGL is told them of a data length
    std::array<float, 16> modelView{};   ///< of relative places, column by column
    std::array<float, 16> projection{};  ///< the same
    std::array<float, 16> clip{};        ///< projection times model-view
    std::array<int, 4> viewport{};
    float scale = 1.0F;  ///< eye lengths of a length as OpenGL is told it
    bool isOrthographic = false;
    /// Window pixels of an eye length at distance 1, or anywhere in a parallel projection.
    float pixelsPerUnit = 1.0F;
    bool hasSquarePixels = true;
    /// Unit vectors of the data's space along the window's axes and away from the camera.
    std::array<float, 3> right{};
    std::array<float, 3> up{};
    std::array<float, 3> forward{};
    /// Largest point that OpenGL draws.
    float largestPoint = 1.0F;
};
