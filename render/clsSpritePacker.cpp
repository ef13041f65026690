#include "render/clsSpritePacker.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "interp/clsSnapData.h"
#include "render/clsGLAttribute.h"

namespace {

/// Largest length that is still squared without overflow; larger radii fill the window as well.
constexpr float kLargestSpriteRadius = 1e15F;
/// OpenGL rounds places to 1/256 pixel: so near to a pixel's middle nothing is decided here.
constexpr float kPixelRounding = 1.0F / 64.0F;

/// True when the interval holds the middle of some pixel, or nearly does.
bool CoversPixelMiddle(float middle, float half) {
    const float low = middle - half - kPixelRounding - 0.5F;
    const float high = middle + half + kPixelRounding - 0.5F;
    return std::floor(high) >= std::ceil(low);
}

float Clamped(float value) {
    return value > 0.0F ? std::min(value, 1.0F) : 0.0F;  // what is no number gives 0
}

}  // namespace

SpriteRule_cls SpriteRule_cls::Of(const GLAttribute_cls& attribute, bool isPoint, int step,
                                  Thinning_cls::Form form, bool alphaTwice) {
    SpriteRule_cls rule;
    rule.isPoint = isPoint;
    rule.pixelSize = static_cast<float>(std::max(attribute.mPointSize.mValue, 1));
    rule.isConstantRadius = attribute.mRadiusType.mValue == GLAttribute_cls::kConstantRadius;
    rule.radiusFactor = attribute.GetRadiusFactor() * Thinning_cls::GetRadiusFactor(step, form);
    rule.dependsOnRadius = attribute.mAlphaType.mValue == SnapAttribute_cls::kDependOnRadius;
    rule.alphaFactor = Thinning_cls::GetAlphaFactor(step, form);
    if (alphaTwice && !rule.dependsOnRadius) rule.alphaFactor *= attribute.mAlphaFactor.mValue;
    rule.alphaMax = attribute.mAlphaMax.mValue;
    return rule;
}

SpritePacker_cls::SpritePacker_cls(const DrawView_cls& view, const SnapData_cls& state)
    : mView(view), mState(state), mPixelsPerLength(view.pixelsPerUnit * view.scale) {}

float SpritePacker_cls::ColourAlpha(size_t particle, const SpriteRule_cls& rule, float radius) const {
    const float alpha = mState.GetColor()[4 * particle + 3];
    if (!rule.dependsOnRadius) return Clamped(alpha * rule.alphaFactor);
    return Clamped(std::min(rule.alphaMax, alpha / (radius * radius) * rule.alphaFactor));
}

SpritePacker_cls::Shape SpritePacker_cls::Pack(size_t particle, const SpriteRule_cls& rule,
                                               Sprite_cls* sprite) const {
    sprite->position = mView.Relative(mState.GetPosition() + 3 * particle);
    const auto& p = sprite->position;
    if (!(std::abs(p[0] + p[1] + p[2]) <= std::numeric_limits<float>::max())) return Shape::Hidden;
    const float radius = (rule.isConstantRadius ? 1.0F : mState.GetRadius()[particle]) * rule.radiusFactor;
    const float* colour = mState.GetColor() + 4 * particle;
    sprite->colour = {colour[0], colour[1], colour[2], ColourAlpha(particle, rule, radius)};
    if (rule.marksAdditive) sprite->colour[3] = -sprite->colour[3];
    if (rule.isPoint) {
        sprite->size = -rule.pixelSize;
        return Classify(*sprite);
    }
    if (!(radius * mView.unit > 0.0F)) return Shape::Hidden;
    sprite->size = std::min(radius * mView.unit, kLargestSpriteRadius);
    return Classify(*sprite);
}

SpritePacker_cls::Shape SpritePacker_cls::Classify(const Sprite_cls& sprite) const {
    const auto& p = sprite.position;
    const auto& m = mView.clip;
    const float w = m[3] * p[0] + m[7] * p[1] + m[11] * p[2] + m[15];
    // All corners are as far away as the middle: behind the eye none is seen.
    if (!(w > 0.0F)) return Shape::Hidden;
    const float x = m[0] * p[0] + m[4] * p[1] + m[8] * p[2] + m[12];
    const float y = m[1] * p[0] + m[5] * p[1] + m[9] * p[2] + m[13];
    const float z = m[2] * p[0] + m[6] * p[1] + m[10] * p[2] + m[14];
    const bool isInside = std::abs(x) <= w && std::abs(y) <= w;
    // OpenGL clips points by their middle.
    if (sprite.size < 0.0F) return isInside && std::abs(z) <= w ? Shape::Sprite : Shape::Hidden;
    const float pixels = sprite.size * mPixelsPerLength / w;  // half the side
    const float halfWidth = 0.5F * static_cast<float>(mView.viewport[2]);
    const float halfHeight = 0.5F * static_cast<float>(mView.viewport[3]);
    const float fromLeft = (x / w + 1.0F) * halfWidth;
    const float fromBelow = (y / w + 1.0F) * halfHeight;
    if (!mView.hasSquarePixels) return Shape::Quad;
    const bool outside = fromLeft + pixels < 0.0F || fromLeft - pixels > 2.0F * halfWidth ||
                         fromBelow + pixels < 0.0F || fromBelow - pixels > 2.0F * halfHeight ||
                         std::abs(z) > w;
    if (outside) return Shape::Hidden;
    if (pixels < 0.5F) {
        // Points have at least one pixel, rectangles may have none.
        const bool seen = CoversPixelMiddle(fromLeft, pixels) && CoversPixelMiddle(fromBelow, pixels);
        return seen ? Shape::Quad : Shape::Hidden;
    }
    return isInside && 2.0F * pixels <= mView.largestPoint ? Shape::Sprite : Shape::Quad;
}

void SpritePacker_cls::MakeQuad(const Sprite_cls& sprite, SpriteCorner_cls* corners) const {
    static constexpr std::array<float, 4> kX = {-1.0F, 1.0F, 1.0F, -1.0F};
    static constexpr std::array<float, 4> kY = {-1.0F, -1.0F, 1.0F, 1.0F};
    const auto& p = sprite.position;
    float half = sprite.size;
    float shift = 0.0F;
    const bool isPoint = half < 0.0F;
    if (isPoint) {
        const auto& m = mView.clip;
        const float pixel = (m[3] * p[0] + m[7] * p[1] + m[11] * p[2] + m[15]) / mPixelsPerLength;
        half = -0.5F * sprite.size * pixel;
        shift = pixel / 256.0F;  // as for sprites, see Sprite.vert
    }
    for (size_t k = 0; k < 4; ++k) {
        SpriteCorner_cls& corner = corners[k];
        for (size_t axis = 0; axis < 3; ++axis)
            corner.position[axis] = p[axis] + (shift + half * kX[k]) * mView.right[axis] +
                                    (shift + half * kY[k]) * mView.up[axis];
        // Rows of a picture go downwards.
        corner.place = {0.5F + 0.5F * kX[k], 0.5F - 0.5F * kY[k], isPoint ? 0.0F : 1.0F};
        corner.colour = sprite.colour;
    }
}
