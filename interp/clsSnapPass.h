#pragma once

#include <array>
#include <optional>

#include "interp/clsPreparedCurve.h"
#include "interp/clsSnapSource.h"

/// What one evaluation of a snapshot at one instant reads and writes: plain functions on arrays, for any
/// range of particles. The arrays are borrowed.
/// Threads: the functions may run at once on ranges that do not meet.
/// Units: tau is the time since the snapshot.
struct SnapPass_cls {
    /// How the particles of one type are coloured.
    struct Paint {
        std::optional<PreparedCurve_cls> curve;
        const float* value = nullptr;  ///< what drives the curve; null: the constant colour for all particles
        PreparedCurve_cls::Color constant{};
        PreparedCurve_cls::Color scale{1.0F, 1.0F, 1.0F, 1.0F};  ///< the attribute's factor of alpha
    };
    static constexpr int kTypes = 4;

    SnapSource_cls source{};
    float tau = 0.0F;
    /// Only particles 0, stride, 2 stride, ... are visited, the others' results are not written.
    int stride = 1;
    float* position = nullptr;
    float* radius = nullptr;
    float* value1 = nullptr;
    float* color = nullptr;
    std::array<Paint, kTypes> paints{};

    /// Snapshot plus rate times tau, and the colours.
    void InterpolateDataLinear(int begin, int end) const;
    /// The snapshot as it stands, and the colours; every particle.
    void Copy(int begin, int end) const;
    /// The quantity that a curve depends on (ColorCurve_cls::Depend, from kPosition on), of the snapshot
    /// itself.
    static void Derive(const SnapSource_cls& source, unsigned int depend, int stride, float* out, int begin,
                       int end);

  private:
    /// Types beyond the last are drawn as type 0.
    const Paint& PaintOf(uint8_t type) const { return paints[type < kTypes ? type : 0]; }
    void PaintColors(int begin, int end, int step) const;
};
