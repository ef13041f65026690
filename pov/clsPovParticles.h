#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "interp/clsPreparedCurve.h"
#include "pov/clsPovCloud.h"
#include "render/clsDisplayedState.h"

class DrawOption_cls;

/// Chooses the particles of one frame for the ray tracer: those that the view draws, with its radii, colours
/// and alpha. Made for one choice; what it is given outlives it.
/// Threads: one at a time; Gather() fans out and returns when that is done. The cloud is the same whatever
/// the number of threads. Failure: particles that cannot be placed (no number, no radius) are left out.
class PovParticles_cls {
  public:
    PovParticles_cls(const SnapData_cls& state, const DrawAttributes_cls& attributes,
                     const DrawOption_cls& option, bool fineColors);

    PovCloud_cls Gather(const PovCamera_cls& camera, const PovSpace_cls& space) const;

  private:
    /// One attribute made ready for the pass.
    struct Brush {
        std::optional<PovLook_cls::Kind> kind;
        const GLAttribute_cls* attribute = nullptr;
        bool hasBillboardToo = false;
        bool hasFlatAlpha = false;  ///< alpha does not depend on the radius, whatever the attribute says
        bool isAdditive = false;
        float pointRadius = 0.0F;  ///< in pixels
        struct Curve {
            std::optional<PreparedCurve_cls> curve;
            PreparedCurve_cls::Color constant{};
            const float* values = nullptr;
            PreparedCurve_cls::Color At(size_t i) const {
                return values ? curve->GetColor(values[i]) : constant;
            }
        };
        std::array<Curve, 3> material;  ///< ambient, diffuse, specular
    };
    struct View {
        const PovCamera_cls& camera;
        const PovSpace_cls& space;
    };
    /// What one thread has chosen, with looks numbered for itself.
    struct Part {
        explicit Part(bool isFine) : palette(isFine) {}
        PovPalette_cls palette;
        std::vector<PovCloud_cls::Item> items, billboards;
        std::vector<PovCamera_cls::Facing> facings;
    };

    void Prepare(Brush& brush, GLAttribute_cls& attribute, bool isAlone);
    /// Rules of a single attribute that differ from those of all together.
    void AdjustAlpha(GLAttribute_cls& attribute);
    size_t CountDrawn() const;
    void GatherPart(size_t first, size_t count, const View& view, Part& part) const;
    void Add(const Brush& brush, PovLook_cls::Kind kind, size_t i, const Vector3& place, const View& view,
             Part& part) const;
    PovLook_cls LookOf(const Brush& brush, PovLook_cls::Kind kind, size_t i, float radius) const;

    const SnapData_cls& mState;
    const bool mHasFineColors;
    std::array<Brush, 4> mBrushes;
    float mRadiusStep = 1.0F;
    float mAlphaStep = 1.0F;
};
