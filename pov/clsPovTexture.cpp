#include "pov/clsPovTexture.h"

#include <algorithm>
#include <cmath>

#include "pov/clsPovPalette.h"
#include "pov/clsPovText.h"
#include "render/clsVector3.h"
#include "seam/clsTextCoding.h"

namespace {

/// What adds to its background lets all but this share of it through. So small that hundreds of layers
/// leave the background as it is, and large enough for the numbers of the renderer.
constexpr float kClear = 1e-4F;

/// Materials divide by their diffuse colour, which therefore has a little of every channel.
constexpr float kLeastDiffuse = 1e-3F;

/// Of the highlights, as the view has them: the power of the cosine.
constexpr double kShininess = 32.0;

/// A highlight as the renderer knows it: so strong, between the light's colour and the material's.
struct Highlight_cls {
    double strength;
    double metallic;
};

/// The mix of white and the material's colour that is nearest to a wanted colour.
Highlight_cls FitHighlight(const std::array<float, 3>& material, const Vector3& wanted) {
    double m = 0.0;
    double mm = 0.0;
    double w = 0.0;
    double mw = 0.0;
    for (size_t c = 0; c < 3; ++c) {
        const double channel = material[c];
        m += channel;
        mm += channel * channel;
        w += wanted[c];
        mw += channel * wanted[c];
    }
    const double spread = mm - m * m / 3.0;
    double own = spread > 1e-9 ? (mw - m * w / 3.0) / spread : 0.0;
    double white = (w - own * m) / 3.0;
    if (own < 0.0) {
        own = 0.0;
        white = w / 3.0;
    } else if (white < 0.0) {
        white = 0.0;
        own = mw / mm;
    }
    const double strength = own + white;
    return {strength, strength > 0.0 ? own / strength : 0.0};
}

}  // namespace

void PovTexture_cls::Write(PovText_cls& text, const PovLook_cls& look) const {
    if (look.kind == PovLook_cls::Kind::Sphere) {
        WriteLit(text, look);
    } else {
        // A ray passes the surface twice, and both together are to have the wanted alpha.
        const float alpha = look.color[3];
        const float passing = look.isAdditive ? 1.0F - kClear : std::sqrt(1.0F - alpha);
        const float strength = look.isAdditive ? alpha / (2.0F * kClear) : 1.0F;
        text << "texture { pigment { rgbt <" << look.color[0] * strength << ',' << look.color[1] * strength
             << ',' << look.color[2] * strength << ',' << passing << "> } finish { Glow } } no_shadow";
    }
    if (look.IsTransparent()) text << " interior { Layer }";
}

void PovTexture_cls::WriteLit(PovText_cls& text, const PovLook_cls& look) const {
    const float alpha = look.color[3];
    std::array<float, 3> diffuse{};
    std::array<float, 3> ambient{};
    Vector3 specular{};
    for (size_t c = 0; c < 3; ++c) {
        diffuse[c] = std::max(look.color[c], kLeastDiffuse);
        ambient[c] = look.ambient[c] / diffuse[c];
        specular[c] = look.specular[c] * mLighting.specularPerDiffuse[c];
    }
    Highlight_cls highlight = FitHighlight(diffuse, specular);
    // Highlights are not dimmed by transparency, and those of the material's colour are as strong as it.
    if (look.isAdditive) highlight = {(specular[0] + specular[1] + specular[2]) / 3.0, 0.0};
    const float strength = look.isAdditive ? alpha / kClear : 1.0F;
    text << "texture { pigment { rgbt <" << diffuse[0] * strength << ',' << diffuse[1] * strength << ','
         << diffuse[2] * strength << ',' << (look.isAdditive ? 1.0F - kClear : 1.0F - alpha)
         << "> } finish { ambient rgb " << ambient << " diffuse 1 specular "
         << static_cast<float>(highlight.strength) * alpha << " roughness "
         << static_cast<float>(1.0 / kShininess) << " metallic " << static_cast<float>(highlight.metallic)
         << " } }";
    // The far side of a sphere would be seen through the near one, once more than in the view.
    if (look.IsTransparent()) text << " interior_texture { pigment { rgbt 1 } finish { Glow } }";
    if (mLighting.hasPhotons) text << " photons { target reflection on refraction on }";
}

void PovTexture_cls::WriteSprite(PovText_cls& text, const PovLook_cls& look, const Sprite& sprite) {
    const float alpha = look.color[3];
    const float clear = look.isAdditive ? 1.0F - kClear : 1.0F;
    const float passing = look.isAdditive ? clear : 1.0F - alpha;
    const float strength = look.isAdditive ? alpha / kClear : 1.0F;
    const auto rgb = [&](float factor) {
        text << "rgbt <";
        for (size_t c = 0; c < 3; ++c) text << look.color[c] * sprite.tint[c] * factor << ',';
    };
    // The pattern is the texture's transparency.
    text << "texture { uv_mapping pigment { image_pattern { png \"" << ToBytes(sprite.file)
         << "\" use_alpha } color_map { [0 ";
    rgb(strength);
    text << passing << ">] [1 ";
    rgb(look.isAdditive ? 0.0F : 1.0F);
    text << clear << ">] } } finish { Glow } }";
}
