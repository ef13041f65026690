#include "pov/clsPovParticles.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pov/clsPovText.h"
#include "render/clsDrawOption.h"
#include "render/clsGLDrawBillboard.h"
#include "render/clsThinning.h"
#include "seam/clsTextCoding.h"

namespace {

/// Particles between two looks at the progress.
constexpr size_t kRound = 1 << 16;

constexpr size_t kAhead = 16;
/// Smaller radii need more digits than seven behind the point.
constexpr float kCoarseRadius = 1e-3F;

/// What adds to its background lets all but this share of it through. So small that hundreds of layers
/// leave the background as it is, and large enough for the numbers of the renderer.
constexpr float kClear = 1e-4F;

/// Materials divide by their diffuse colour, which therefore has a little of every channel.
constexpr float kLeastDiffuse = 1e-3F;

/// Of the highlights, as the view has them: the power of the cosine.
constexpr double kShininess = 32.0;

/// A sphere larger than this, in scene lengths, is as good as flat.
constexpr double kLargestRadius = 1e6;

bool IsFinite(const float* position) {
    return std::isfinite(position[0]) && std::isfinite(position[1]) && std::isfinite(position[2]);
}

std::array<float, 3> Floats(const Vector3& v) {
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

std::array<float, 3> Rgb(const std::array<float, 4>& color) {
    return {color[0], color[1], color[2]};
}

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

/// Calls the function for 0 to count - 1; false when it was cancelled. The share runs from `from` to `to`.
template <class Function>
bool ForEach(size_t count, double from, double to, const PovParticles_cls::Progress& progress,
             const Function& function) {
    for (size_t begin = 0; begin < count; begin += kRound) {
        if (progress &&
            !progress(from + (to - from) * static_cast<double>(begin) / static_cast<double>(count)))
            return false;
        for (size_t i = begin; i < std::min(begin + kRound, count); ++i) function(i);
    }
    return true;
}

}  // namespace

PovParticles_cls::PovParticles_cls(const SnapData_cls& state, const DrawAttributes_cls& attributes,
                                   const DrawOption_cls& option, bool fineColors)
    : mState(state), mPalette(fineColors) {
    const bool isAlone = option.mClassify.mValue == DrawOption_cls::kAttribute0Only;
    for (size_t i = 0; i < mBrushes.size(); ++i) Prepare(mBrushes[i], *attributes[isAlone ? 0 : i], isAlone);
    // Billboards of a single attribute are thinned by the other form of the rule, as in the view.
    const bool flat = isAlone && mBrushes[0].kind == PovLook_cls::Kind::Billboard;
    const auto form = flat ? Thinning_cls::Form::Unclamped : Thinning_cls::Form::Clamped;
    mRadiusStep = Thinning_cls::GetRadiusFactor(state.GetStride(), form);
    mAlphaStep = Thinning_cls::GetAlphaFactor(state.GetStride(), form);
    if (isAlone) AdjustAlpha(*attributes[0]);
}

void PovParticles_cls::AdjustAlpha(GLAttribute_cls& attribute) {
    const GLAttribute_cls::Alpha alpha = attribute.GetAlpha();
    const bool isConstant = alpha.type != SnapAttribute_cls::kDependOnRadius;
    const bool hasCurve = attribute.GetCurve(SnapAttribute_cls::kColor).IsOn();
    const size_t drawn = CountDrawn();
    if (mBrushes[0].kind == PovLook_cls::Kind::Billboard && isConstant && hasCurve &&
        drawn > GLDrawBillboard_cls::kLargestSingle) {
        mAlphaStep *= alpha.factor;  // large scenes of billboards have the factor twice, and always had
    }
    if (mBrushes[0].kind == PovLook_cls::Kind::Glow && !isConstant && !hasCurve) {
        // One colour for all points, whatever their radius: the factor in place of the squared base.
        const float base = alpha.dependBase * alpha.dependBase;
        mAlphaStep *= base > 0.0F ? alpha.factor / base : 0.0F;
        mBrushes[0].hasFlatAlpha = true;
    }
}

void PovParticles_cls::Prepare(Brush& brush, GLAttribute_cls& attribute, bool isAlone) {
    brush.attribute = &attribute;
    brush.isAdditive = attribute.mBlendType.mValue == GLAttribute_cls::kAdditive;
    // The view's points are squares; a sphere that covers as much looks the same from some distance.
    brush.pointRadius =
        static_cast<float>(std::max(attribute.mPointSize.mValue, 1) * std::numbers::inv_sqrtpi);
    switch (attribute.mDrawType.mValue) {
        case SnapAttribute_cls::kPoint:
            brush.kind = PovLook_cls::Kind::Glow;
            break;
        case SnapAttribute_cls::kBillboard:
            brush.kind = PovLook_cls::Kind::Billboard;
            break;
        case SnapAttribute_cls::kSphere:
            brush.kind = PovLook_cls::Kind::Sphere;
            break;
        case SnapAttribute_cls::kBoth:
            // A single attribute draws nothing for this kind.
            if (isAlone) break;
            brush.kind = PovLook_cls::Kind::Sphere;
            brush.hasBillboardToo = true;
            break;
        default:
            break;
    }
    if (brush.kind != PovLook_cls::Kind::Sphere) return;
    const SnapAttribute_cls snap = attribute.GetSnapAttribute();
    constexpr std::array<int, 3> kMaterial = {SnapAttribute_cls::kAmbient, SnapAttribute_cls::kDiffuse,
                                              SnapAttribute_cls::kSpecular};
    for (size_t k = 0; k < kMaterial.size(); ++k) {
        ColorCurve_cls& curve = attribute.GetCurve(kMaterial[k]);
        curve.PreCalcScaleFactor();
        Brush::Curve& own = brush.material[k];
        own.curve.emplace(curve);
        for (size_t c = 0; c < 4; ++c) own.constant[c] = curve.mConstantColor.mValue[c];
        if (curve.IsOn()) mState.SetPValue1(&own.values, snap, kMaterial[k]);
    }
}

PovLook_cls PovParticles_cls::LookOf(const Brush& brush, PovLook_cls::Kind kind, size_t i,
                                     float radius) const {
    PovLook_cls look;
    look.kind = kind;
    look.isAdditive = brush.isAdditive;
    if (kind == PovLook_cls::Kind::Sphere) {
        const auto ambient = brush.material[0].At(i);
        const auto diffuse = brush.material[1].At(i);
        const auto specular = brush.material[2].At(i);
        for (size_t c = 0; c < 3; ++c) {
            look.ambient[c] = ambient[c];
            look.color[c] = diffuse[c];
            look.specular[c] = specular[c];
        }
        look.color[3] = diffuse[3] * brush.attribute->mAlphaFactor.mValue * mAlphaStep;
        return look;
    }
    const float* color = mState.GetColor() + 4 * i;
    for (size_t c = 0; c < 3; ++c) look.color[c] = color[c];
    look.color[3] = brush.hasFlatAlpha ? color[3] * mAlphaStep
                                       : brush.attribute->GetDrawnAlpha(color[3], radius, mAlphaStep);
    if (kind == PovLook_cls::Kind::Billboard)
        look.attribute = static_cast<uint8_t>(brush.attribute->GetIndex());
    return look;
}

size_t PovParticles_cls::CountDrawn() const {
    const auto stride = static_cast<size_t>(std::max(mState.GetStride(), 1));
    return (static_cast<size_t>(mState.GetCount()) + stride - 1) / stride;
}

void PovParticles_cls::Add(const Brush& brush, PovLook_cls::Kind kind, size_t i, const Vector3& place,
                           const View& view) {
    const float dataRadius = brush.attribute->GetDrawnRadius(mState.GetRadius()[i], mRadiusStep);
    const double depth = view.camera.GetDepth(place);
    const double radius = kind == PovLook_cls::Kind::Glow
                              ? brush.pointRadius * view.camera.GetPixel(depth)
                              : std::min(dataRadius * view.space.scale, kLargestRadius);
    const bool isDeep = kind == PovLook_cls::Kind::Sphere;
    if (!(radius > 0.0) || !view.camera.IsInRange(depth, isDeep ? radius : 0.0)) return;
    const PovLook_cls look = LookOf(brush, kind, i, dataRadius);
    if (!(look.color[3] > 0.0F)) return;
    const Item item = {Floats(place), static_cast<float>(radius), mPalette.Find(look)};
    if (kind != PovLook_cls::Kind::Billboard) {
        mItems.push_back(item);
        return;
    }
    mBillboards.push_back(item);
    if (mFacings.empty() || view.camera.IsRound()) mFacings.push_back(view.camera.GetFacing(place));
}

bool PovParticles_cls::Gather(const PovCamera_cls& camera, const PovSpace_cls& space,
                              const Progress& progress) {
    const auto stride = static_cast<size_t>(std::max(mState.GetStride(), 1));
    const float* positions = mState.GetPosition();
    const uint8_t* types = mState.GetType();
    const View view{camera, space};
    mItems.reserve(CountDrawn());
    return ForEach(CountDrawn(), 0.0, 0.3, progress, [&](size_t drawn) {
        const size_t i = drawn * stride;
        const Brush& brush = mBrushes[types[i] < mBrushes.size() ? types[i] : 0];
        const float* p = positions + 3 * i;
        if (!brush.kind || !IsFinite(p)) return;
        const Vector3 data = {static_cast<double>(p[0]), static_cast<double>(p[1]),
                              static_cast<double>(p[2])};
        const Vector3 place = space.IsPlain() ? data : space.Of(data);
        Add(brush, *brush.kind, i, place, view);
        if (brush.hasBillboardToo) Add(brush, PovLook_cls::Kind::Billboard, i, place, view);
    });
}

bool PovParticles_cls::IsAnyTransparent() const {
    return std::any_of(mPalette.GetLooks().begin(), mPalette.GetLooks().end(),
                       [](const PovLook_cls& look) { return look.IsTransparent(); });
}

bool PovParticles_cls::Write(PovText_cls& text, const Lighting& lighting, const SpriteSource& sprites,
                             const Progress& progress) const {
    return WriteSpheres(text, lighting, progress) && WriteBillboards(text, sprites, progress);
}

void PovParticles_cls::WriteTexture(PovText_cls& text, const PovLook_cls& look,
                                    const Lighting& lighting) const {
    const float alpha = look.color[3];
    if (look.kind == PovLook_cls::Kind::Sphere) {
        std::array<float, 3> diffuse = Rgb(look.color);
        Vector3 ambient{};
        Vector3 specular{};
        for (size_t c = 0; c < 3; ++c) {
            diffuse[c] = std::max(diffuse[c], kLeastDiffuse);
            ambient[c] = look.ambient[c] / diffuse[c];
            specular[c] = look.specular[c] * lighting.specularPerDiffuse[c];
        }
        Highlight_cls highlight = FitHighlight(diffuse, specular);
        // Highlights are not dimmed by transparency, and those of the material's colour are as strong as it.
        if (look.isAdditive) highlight = {(specular[0] + specular[1] + specular[2]) / 3.0, 0.0};
        const float strength = look.isAdditive ? alpha / kClear : 1.0F;
        text << "texture { pigment { rgbt <" << diffuse[0] * strength << ',' << diffuse[1] * strength << ','
             << diffuse[2] * strength << ',' << (look.isAdditive ? 1.0F - kClear : 1.0F - alpha)
             << "> } finish { ambient rgb " << Floats(ambient) << " diffuse 1 specular "
             << static_cast<float>(highlight.strength) * alpha << " roughness "
             << static_cast<float>(1.0 / kShininess) << " metallic " << static_cast<float>(highlight.metallic)
             << " } }";
        // The far side of a sphere would be seen through the near one, once more than in the view.
        if (look.IsTransparent()) text << " interior_texture { pigment { rgbt 1 } finish { Glow } }";
        if (lighting.hasPhotons) text << " photons { target reflection on refraction on }";
    } else {
        // A ray passes the surface twice, and both together are to have the wanted alpha.
        const float passing = look.isAdditive ? 1.0F - kClear : std::sqrt(1.0F - alpha);
        const float strength = look.isAdditive ? alpha / (2.0F * kClear) : 1.0F;
        text << "texture { pigment { rgbt <" << look.color[0] * strength << ',' << look.color[1] * strength
             << ',' << look.color[2] * strength << ',' << passing << "> } finish { Glow } } no_shadow";
    }
    if (look.IsTransparent()) text << " interior { Layer }";
}

bool PovParticles_cls::WriteSpheres(PovText_cls& text, const Lighting& lighting,
                                    const Progress& progress) const {
    // Order by look, each look's particles as they were.
    std::vector<size_t> begins(mPalette.GetLooks().size() + 1);
    for (const Item& item : mItems) ++begins[item.look + 1];
    for (size_t i = 1; i < begins.size(); ++i) begins[i] += begins[i - 1];
    std::vector<uint32_t> order(mItems.size());
    std::vector<size_t> next(begins.begin(), begins.end() - 1);
    for (size_t i = 0; i < mItems.size(); ++i) order[next[mItems[i].look]++] = static_cast<uint32_t>(i);

    size_t group = 0;
    const bool completed = ForEach(order.size(), 0.3, 0.8, progress, [&](size_t place) {
        // Particles of one look lie far apart in memory: the next ones are fetched while this one is written.
        if (place + kAhead < order.size()) __builtin_prefetch(&mItems[order[place + kAhead]]);
        const Item& item = mItems[order[place]];
        group = item.look;
        const bool isUnion = begins[group + 1] - begins[group] > 1;
        if (isUnion && place == begins[group]) text << "union {\n";
        text << "sphere{";
        text.Fixed(item.position) << ',';
        if (item.radius >= kCoarseRadius) {
            text.Fixed(static_cast<double>(item.radius));
        } else {
            text << item.radius;
        }
        text << (isUnion ? "}\n" : " ");
        if (place + 1 < begins[group + 1]) return;
        WriteTexture(text, mPalette.GetLooks()[group], lighting);
        text << " }\n";
    });
    return completed;
}

bool PovParticles_cls::WriteBillboards(PovText_cls& text, const SpriteSource& sprites,
                                       const Progress& progress) const {
    if (mBillboards.empty()) return true;
    const size_t count = mBillboards.size();
    text << "mesh2 {\nvertex_vectors { " << 4 * count;
    bool completed = ForEach(count, 0.8, 0.9, progress, [&](size_t i) {
        const Item& item = mBillboards[i];
        const PovCamera_cls::Facing& facing = mFacings[mFacings.size() == 1 ? 0 : i];
        for (const auto& [x, y] : {std::pair{-1, -1}, std::pair{1, -1}, std::pair{1, 1}, std::pair{-1, 1}}) {
            Vector3 corner{};
            for (size_t c = 0; c < 3; ++c)
                corner[c] = item.position[c] +
                            static_cast<double>(item.radius) * (x * facing.right[c] + y * facing.up[c]);
            text << ",\n";
            text.Fixed(Floats(corner));
        }
    });
    if (!completed) return false;
    text << "\n}\nuv_vectors { 4, <0,0>, <1,0>, <1,1>, <0,1> }\n";

    // The mesh numbers its own textures.
    const auto& looks = mPalette.GetLooks();
    std::vector<uint32_t> numbers(looks.size());
    uint32_t used = 0;
    for (size_t i = 0; i < looks.size(); ++i) {
        if (looks[i].kind == PovLook_cls::Kind::Billboard) numbers[i] = used++;
    }
    std::array<std::optional<Sprite>, 4> files;
    text << "texture_list { " << used;
    for (const PovLook_cls& look : looks) {
        if (look.kind != PovLook_cls::Kind::Billboard) continue;
        auto& sprite = files.at(look.attribute);
        if (!sprite) sprite = sprites(look.attribute);
        const float alpha = look.color[3];
        const float clear = look.isAdditive ? 1.0F - kClear : 1.0F;
        const float passing = look.isAdditive ? clear : 1.0F - alpha;
        const float strength = look.isAdditive ? alpha / kClear : 1.0F;
        const auto rgb = [&](float factor) {
            text << "rgbt <";
            for (size_t c = 0; c < 3; ++c) text << look.color[c] * sprite->tint[c] * factor << ',';
        };
        // The pattern is the texture's transparency.
        text << ",\ntexture { uv_mapping pigment { image_pattern { png \"" << ToBytes(sprite->file)
             << "\" use_alpha } color_map { [0 ";
        rgb(strength);
        text << passing << ">] [1 ";
        rgb(look.isAdditive ? 0.0F : 1.0F);
        text << clear << ">] } } finish { Glow } }";
    }
    text << "\n}\nface_indices { " << 2 * count;
    completed = ForEach(count, 0.9, 0.97, progress, [&](size_t i) {
        const size_t v = 4 * i;
        const uint32_t look = numbers[mBillboards[i].look];
        text << ",\n<" << v << ',' << v + 1 << ',' << v + 2 << ">," << look << ",<" << v << ',' << v + 2
             << ',' << v + 3 << ">," << look;
    });
    if (!completed) return false;
    text << "\n}\nuv_indices { " << 2 * count;
    completed = ForEach(count, 0.97, 1.0, progress, [&](size_t) { text << ",\n<0,1,2>,<0,2,3>"; });
    text << "\n}\ninterior { Layer } no_shadow }\n";
    return completed;
}
