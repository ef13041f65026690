#include "pov/clsPovParticles.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "render/clsDrawOption.h"
#include "render/clsGLDrawBillboard.h"
#include "render/clsThinning.h"
#include "seam/clsPieceWork.h"

namespace {

/// Particles that one thread chooses in one go.
constexpr size_t kGatherPiece = 1 << 15;

/// A sphere larger than this, in scene lengths, is as good as flat.
constexpr double kFlatRadius = 1e6;

bool IsFinite(const float* position) {
    return std::isfinite(position[0]) && std::isfinite(position[1]) && std::isfinite(position[2]);
}

std::array<float, 3> Floats(const Vector3& v) {
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

/// Puts those of one look side by side, as they were: they are written together, and so lie together.
void SortByLook(std::vector<PovCloud_cls::Item>& items, size_t looks) {
    std::vector<uint32_t> next(looks + 1);
    for (const PovCloud_cls::Item& item : items) ++next[item.look + 1];
    for (size_t i = 1; i < next.size(); ++i) next[i] += next[i - 1];
    std::vector<PovCloud_cls::Item> sorted(items.size());
    for (const PovCloud_cls::Item& item : items) sorted[next[item.look]++] = item;
    items.swap(sorted);
}

}  // namespace

PovParticles_cls::PovParticles_cls(const SnapData_cls& state, const DrawAttributes_cls& attributes,
                                   const DrawOption_cls& option, bool fineColors)
    : mState(state), mHasFineColors(fineColors) {
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
                           const View& view, Part& part) const {
    const float dataRadius = brush.attribute->GetDrawnRadius(mState.GetRadius()[i], mRadiusStep);
    const double depth = view.camera.GetDepth(place);
    const double radius = kind == PovLook_cls::Kind::Glow
                              ? brush.pointRadius * view.camera.GetPixel(depth)
                              : std::min(dataRadius * view.space.scale, kFlatRadius);
    const bool isDeep = kind == PovLook_cls::Kind::Sphere;
    if (!(radius > 0.0) || !view.camera.IsInRange(depth, isDeep ? radius : 0.0)) return;
    const PovLook_cls look = LookOf(brush, kind, i, dataRadius);
    if (!(look.color[3] > 0.0F)) return;
    const PovCloud_cls::Item item = {Floats(place), static_cast<float>(radius), part.palette.Find(look)};
    if (kind != PovLook_cls::Kind::Billboard) {
        part.items.push_back(item);
        return;
    }
    part.billboards.push_back(item);
    if (part.facings.empty() || view.camera.IsRound()) part.facings.push_back(view.camera.GetFacing(place));
}

void PovParticles_cls::GatherPart(size_t first, size_t count, const View& view, Part& part) const {
    const auto stride = static_cast<size_t>(std::max(mState.GetStride(), 1));
    const float* positions = mState.GetPosition();
    const uint8_t* types = mState.GetType();
    part.items.reserve(count);
    for (size_t drawn = first; drawn < first + count; ++drawn) {
        const size_t i = drawn * stride;
        const Brush& brush = mBrushes[types[i] < mBrushes.size() ? types[i] : 0];
        const float* p = positions + 3 * i;
        if (!brush.kind || !IsFinite(p)) continue;
        const Vector3 data = {static_cast<double>(p[0]), static_cast<double>(p[1]),
                              static_cast<double>(p[2])};
        const Vector3 place = view.space.IsPlain() ? data : view.space.Of(data);
        Add(brush, *brush.kind, i, place, view, part);
        if (brush.hasBillboardToo) Add(brush, PovLook_cls::Kind::Billboard, i, place, view, part);
    }
    SortByLook(part.items, part.palette.GetLooks().size());
}

PovCloud_cls PovParticles_cls::Gather(const PovCamera_cls& camera, const PovSpace_cls& space) const {
    const View view{camera, space};
    const size_t drawn = CountDrawn();
    PovCloud_cls cloud;
    cloud.items.reserve(drawn);
    PovPalette_cls palette(mHasFineColors);
    std::array<std::unique_ptr<Part>, PieceWork_cls::kSlots> parts;
    const auto gather = [&](size_t piece, size_t slot) {
        parts[slot] = std::make_unique<Part>(mHasFineColors);
        const size_t first = piece * kGatherPiece;
        GatherPart(first, std::min(kGatherPiece, drawn - first), view, *parts[slot]);
    };
    const auto take = [&](size_t, size_t slot) {
        const Part& part = *parts[slot];
        std::vector<uint32_t> numbers;
        for (const PovLook_cls& look : part.palette.GetLooks()) numbers.push_back(palette.Find(look));
        const auto append = [&numbers](const std::vector<PovCloud_cls::Item>& from, auto& to) {
            for (PovCloud_cls::Item item : from) {
                item.look = numbers[item.look];
                to.push_back(item);
            }
        };
        append(part.items, cloud.items);
        append(part.billboards, cloud.billboards);
        if (cloud.facings.empty() || camera.IsRound())
            cloud.facings.insert(cloud.facings.end(), part.facings.begin(), part.facings.end());
        parts[slot].reset();
    };
    PieceWork_cls::Run((drawn + kGatherPiece - 1) / kGatherPiece, gather, take);
    cloud.looks = palette.GetLooks();
    return cloud;
}
