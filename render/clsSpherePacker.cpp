#include "render/clsSpherePacker.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "interp/clsSnapData.h"
#include "render/clsGLAttribute.h"
#include "render/clsThinning.h"

namespace {

/// Squares of larger radii would overflow; they fill the window as well.
constexpr float kLargestRadius = 1e15F;

}  // namespace

SphereRule_cls::SphereRule_cls(GLAttribute_cls& attribute, const SnapData_cls& state, int step)
    : mIsConstantRadius(attribute.mRadiusType.mValue == GLAttribute_cls::kConstantRadius),
      mRadiusFactor(attribute.GetRadiusFactor() *
                    Thinning_cls::GetRadiusFactor(step, Thinning_cls::Form::Clamped)),
      mAlphaFactor(attribute.mAlphaFactor.mValue *
                   Thinning_cls::GetAlphaFactor(step, Thinning_cls::Form::Clamped)) {
    const SnapAttribute_cls snapAttribute = attribute.GetSnapAttribute();
    for (size_t i = 0; i < mMaterials.size(); ++i) {
        const int number = SnapAttribute_cls::kAmbient + static_cast<int>(i);
        ColorCurve_cls& curve = attribute.GetCurve(number);
        std::copy_n(curve.mConstantColor.mValue.begin(), 4, mMaterials[i].constant.begin());
        if (!curve.IsOn()) continue;
        state.SetPValue1(&mMaterials[i].value, snapAttribute, number);
        if (!mMaterials[i].value) continue;
        curve.PreCalcScaleFactor();
        mMaterials[i].curve.emplace(curve);
    }
}

std::array<float, 4> SphereRule_cls::GetMaterial(size_t which, size_t particle) const {
    const Material& material = mMaterials[which];
    std::array<float, 4> colour = material.constant;
    if (material.curve) {
        const PreparedCurve_cls::Color shown = material.curve->GetColor(material.value[particle]);
        colour = {shown[0], shown[1], shown[2], shown[3]};
    }
    colour[3] *= mAlphaFactor;
    return colour;
}

SpherePacker_cls::Shape SpherePacker_cls::Pack(size_t particle, const SphereRule_cls& rule, float alpha,
                                               float lit, Sphere_cls* sphere) const {
    const auto p = mView.Relative(mState.GetPosition() + 3 * particle);
    const float radius = rule.GetRadius(mState.GetRadius()[particle]) * mView.unit;
    const bool hasPlace = std::abs(p[0] + p[1] + p[2]) <= std::numeric_limits<float>::max();
    if (!hasPlace || !(radius > 0.0F)) return Shape::Hidden;
    sphere->sphere = {p[0], p[1], p[2], std::min(radius, kLargestRadius)};
    sphere->ambient = rule.GetMaterial(0, particle);
    sphere->diffuse = rule.GetMaterial(1, particle);
    sphere->specular = rule.GetMaterial(2, particle);
    for (auto* colour : {&sphere->ambient, &sphere->diffuse, &sphere->specular}) {
        const float own = (*colour)[3] * alpha;
        (*colour)[3] = own > 0.0F ? std::min(own, 1.0F) : 0.0F;
    }
    for (size_t k = 0; k < 3; ++k) {
        sphere->diffuse[k] *= lit;
        sphere->specular[k] *= lit;
    }
    return Classify(*sphere);
}

SpherePacker_cls::Shape SpherePacker_cls::Classify(const Sphere_cls& sphere) const {
    const auto& p = sphere.sphere;
    const auto& m = mView.modelView;
    const float x = m[0] * p[0] + m[4] * p[1] + m[8] * p[2] + m[12];
    const float y = m[1] * p[0] + m[5] * p[1] + m[9] * p[2] + m[13];
    const float z = m[2] * p[0] + m[6] * p[1] + m[10] * p[2] + m[14];
    const float radius = p[3] * mView.scale;
    const float largest = mView.largestPoint - 2.0F;
    const auto& projection = mView.projection;
    float middleX = x;
    float middleY = y;
    float reach = radius;
    float w = 1.0F;
    if (!mView.isOrthographic) {
        if (!(-z > 1.001F * radius)) return z > radius ? Shape::Hidden : Shape::Quad;
        // As in the shader: the tangents at distance 1.
        const float denominator = z * z - radius * radius;
        middleX = -x * z / denominator;
        middleY = -y * z / denominator;
        reach = radius * std::sqrt(std::max(x * x, y * y) + denominator) / denominator;
        w = -1.0F;
    }
    const float clipX = projection[0] * middleX + (w < 0.0F ? -projection[8] : projection[12]);
    const float clipY = projection[5] * middleY + (w < 0.0F ? -projection[9] : projection[13]);
    const bool isSmall = 2.0F * reach * mView.pixelsPerUnit <= largest;
    const bool isInside = std::abs(clipX) < 1.0F && std::abs(clipY) < 1.0F;
    return mView.hasSquarePixels && isSmall && isInside ? Shape::Sprite : Shape::Quad;
}
