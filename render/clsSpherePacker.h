#pragma once

#include <array>
#include <optional>

#include "interp/clsPreparedCurve.h"
#include "render/clsDrawView.h"

class GLAttribute_cls;
class SnapData_cls;

/// A sphere as it is sent to OpenGL.
struct Sphere_cls {
    std::array<float, 4> sphere;  ///< centre, relative (see DrawView_cls), and radius
    std::array<float, 4> ambient;
    std::array<float, 4> diffuse;
    std::array<float, 4> specular;
};

/// How the particles of one attribute become spheres: radius, and the curves of the three materials.
/// Borrows the attribute's curves and the state.
class SphereRule_cls {
  public:
    SphereRule_cls(GLAttribute_cls& attribute, const SnapData_cls& state, int step);

    float GetRadius(float dataRadius) const {
        return (mIsConstantRadius ? 1.0F : dataRadius) * mRadiusFactor;
    }
    /// Ambient, diffuse or specular (0 to 2) of a particle; alpha with the attribute's and the thinning's
    /// factors.
    std::array<float, 4> GetMaterial(size_t which, size_t particle) const;

  private:
    struct Material {
        std::optional<PreparedCurve_cls> curve;  ///< none: the constant colour for all
        const float* value = nullptr;
        std::array<float, 4> constant{};
    };
    std::array<Material, 3> mMaterials;
    bool mIsConstantRadius;
    float mRadiusFactor;
    float mAlphaFactor;
};

/// Turns particles into spheres: plain computation, no OpenGL.
/// A sprite that is ray-cast must have its middle in the window and a size that points may have; a sphere for
/// which that does not hold is a Quad. Meshes may be drawn of either.
/// Threads: any number while nobody changes what it borrows.
class SpherePacker_cls {
  public:
    enum class Shape : uint8_t { Hidden, Sprite, Quad };

    SpherePacker_cls(const DrawView_cls& view, const SnapData_cls& state) : mView(view), mState(state) {}

    /// The sphere of a particle, unless it has no place or no positive radius. `alpha` is the draw order's
    /// multiplier, `lit` the part of the lights that is not in shadow.
    Shape Pack(size_t particle, const SphereRule_cls& rule, float alpha, float lit, Sphere_cls* sphere) const;

  private:
    Shape Classify(const Sphere_cls& sphere) const;

    const DrawView_cls& mView;
    const SnapData_cls& mState;
};
