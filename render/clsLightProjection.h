#pragma once

#include <array>
#include <cstddef>

/// How a light sees the particles: what lies behind what, and how far apart they look.
/// A light infinitely far away sees them projected on the plane across its rays; one with a place sees the
/// directions from there. In both cases a particle is behind another where their places across the rays are
/// no farther apart than the other's radius, and its depth is the greater. Plain numbers; any thread.
class LightProjection_cls {
  public:
    /// Where the light is: a place (the last number is not 0), or a direction towards it, as OpenGL takes it.
    using Light = std::array<float, 4>;
    struct Place {
        std::array<double, 3> mAcross;  ///< lengths, or a unit vector
        float mDepth;                   ///< length along the ray, growing away from the light
        bool IsFinite() const;
    };

    explicit LightProjection_cls(const Light& light);

    /// False for a light without direction or with numbers that are not finite: it throws no shadow.
    bool IsValid() const { return mIsValid; }
    /// Numbers of mAcross that differ from particle to particle.
    size_t GetDimensions() const { return mIsPlace ? 3 : 2; }
    Place Project(const float* position) const;
    /// The radius of a sphere at this depth, in the measure of mAcross. 0 when the light is inside.
    double ProjectRadius(double depth, double radius) const;

  private:
    bool mIsPlace;
    bool mIsValid;
    std::array<double, 3> mLight{};                 ///< place, or unit vector towards the light
    std::array<std::array<double, 3>, 2> mPlane{};  ///< unit vectors across the rays
};
