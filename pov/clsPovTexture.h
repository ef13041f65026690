#pragma once

#include <wx/string.h>

#include <array>

struct PovLook_cls;
class PovText_cls;

/// Looks as textures, such that their colours in the picture are the view's numbers. What adds up is nearly
/// clear and shines so much the more. Plain data. Threads: any number may read it.
class PovTexture_cls {
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

    PovTexture_cls() = default;
    explicit PovTexture_cls(const Lighting& lighting) : mLighting(lighting) {}

    /// What follows the shape of a sphere or point.
    void Write(PovText_cls& text, const PovLook_cls& look) const;
    /// The texture of a billboard with corners at <0,0> and <1,1>.
    static void WriteSprite(PovText_cls& text, const PovLook_cls& look, const Sprite& sprite);

  private:
    void WriteLit(PovText_cls& text, const PovLook_cls& look) const;

    Lighting mLighting;
};
