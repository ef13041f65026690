#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "interp/clsPreparedCurve.h"
#include "pov/clsPovCamera.h"
#include "pov/clsPovPalette.h"
#include "render/clsDisplayedState.h"

class DrawOption_cls;
class PovText_cls;

/// The particles of one frame as scene text: those that the view draws, with its radii, colours and alpha.
///
/// Spheres of one look stand in one union, which gives them its texture: that is parsed fastest and takes the
/// least memory. Billboards are the squares of one mesh, turned to the camera, with the attribute's texture
/// as a pattern of transparency; emitting media, the other likeness, cost a march through each of them. What
/// adds up is nearly clear and shines so much the more.
///
/// Threads: one at a time. Failure: particles that cannot be placed (no number, no radius) are left out.
class PovParticles_cls {
  public:
    /// How the scene's lights turn materials into colours.
    struct Lighting {
        std::array<double, 3> ambient{};
        std::array<double, 3> specularPerDiffuse{1.0, 1.0, 1.0};
        bool hasPhotons = false;
    };
    /// File of an attribute's billboard texture, relative to the scene, and its mean colour.
    struct Sprite {
        wxString file;
        std::array<float, 3> tint{1.0F, 1.0F, 1.0F};
    };
    /// Asked for every attribute that draws billboards.
    using SpriteSource = std::function<Sprite(int attribute)>;
    /// The share that is done, 0 to 1; false ends the work.
    using Progress = std::function<bool(double share)>;

    PovParticles_cls(const SnapData_cls& state, const DrawAttributes_cls& attributes,
                     const DrawOption_cls& option, bool fineColors);

    /// Chooses what is drawn. False when that was cancelled.
    bool Gather(const PovCamera_cls& camera, const PovSpace_cls& space, const Progress& progress);
    /// Writes what was gathered. False when that was cancelled.
    bool Write(PovText_cls& text, const Lighting& lighting, const SpriteSource& sprites,
               const Progress& progress) const;

    bool IsAnyTransparent() const;
    size_t GetCount() const { return mItems.size() + mBillboards.size(); }

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
    struct Item {
        std::array<float, 3> position;
        float radius;
        uint32_t look;
    };

    void Prepare(Brush& brush, GLAttribute_cls& attribute, bool isAlone);
    /// Rules of a single attribute that differ from those of all together.
    void AdjustAlpha(GLAttribute_cls& attribute);
    size_t CountDrawn() const;
    struct View {
        const PovCamera_cls& camera;
        const PovSpace_cls& space;
    };
    void Add(const Brush& brush, PovLook_cls::Kind kind, size_t i, const Vector3& place, const View& view);
    PovLook_cls LookOf(const Brush& brush, PovLook_cls::Kind kind, size_t i, float radius) const;
    bool WriteSpheres(PovText_cls& text, const Lighting& lighting, const Progress& progress) const;
    void WriteTexture(PovText_cls& text, const PovLook_cls& look, const Lighting& lighting) const;
    bool WriteBillboards(PovText_cls& text, const SpriteSource& sprites, const Progress& progress) const;

    const SnapData_cls& mState;
    std::array<Brush, 4> mBrushes;
    float mRadiusStep = 1.0F;
    float mAlphaStep = 1.0F;
    PovPalette_cls mPalette;
    std::vector<Item> mItems;  ///< spheres and points
    std::vector<Item> mBillboards;
    std::vector<PovCamera_cls::Facing> mFacings;  ///< of each billboard; a single one for all that are alike
};
