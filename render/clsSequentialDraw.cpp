#include "render/clsSequentialDraw.h"

#include <algorithm>

#include "interp/clsSnapData.h"
#include "render/clsDrawProgress.h"

namespace {

/// Particles sent together at most: few enough to stay in the cache, and to stop a draw in between.
constexpr size_t kSequentialBlock = 16384;
/// The same where a sphere is hundreds of triangles.
constexpr size_t kTessellatedBlock = 512;

}  // namespace

SequentialDraw_cls::SequentialDraw_cls(const DrawView_cls& view, const SnapData_cls& state,
                                       const DrawAttributes_cls& attributes, int step,
                                       const SphereLooks& sphereLooks, Lists& lists)
    : mView(view),
      mSpritePacker(view, state),
      mSpherePacker(view, state),
      mType(state.GetType()),
      mBlock(kSequentialBlock),
      mLists(lists) {
    for (size_t i = 0; i < mPlans.size(); ++i) mPlans[i].sphereLook = sphereLooks[i];
    MakePlans(state, attributes, step);
    MixBlending();
    mLists.sprites.Clear();
    mLists.spheres.clear();
    mLists.sphereShapes.clear();
}

void SequentialDraw_cls::MakePlans(const SnapData_cls& state, const DrawAttributes_cls& attributes,
                                   int step) {
    for (size_t i = 0; i < mPlans.size(); ++i) {
        GLAttribute_cls& attribute = *attributes[i];
        Plan& plan = mPlans[i];
        const unsigned int type = attribute.mDrawType.mValue;
        const bool isPoint = type == SnapAttribute_cls::kPoint;
        const bool isBillboard = type == SnapAttribute_cls::kBillboard || type == SnapAttribute_cls::kBoth;
        plan.drawsSprite = isPoint || isBillboard;
        plan.drawsSphere = type == SnapAttribute_cls::kSphere || type == SnapAttribute_cls::kBoth;
        plan.spriteRule = SpriteRule_cls::Of(attribute, isPoint, step, Thinning_cls::Form::Clamped);
        plan.spriteLook.blendType = attribute.mBlendType.mValue;
        if (plan.drawsSphere) {
            plan.sphereRule.emplace(attribute, state, step);
            if (plan.sphereLook.quality != SphereBatch_cls::kRayCast) mBlock = kTessellatedBlock;
        }
        if (!isBillboard) continue;
        // One texture for all attributes with one picture, so that their billboards can be sent together.
        const auto same = std::find_if(attributes.begin(), attributes.end(), [&](const auto* other) {
            return other->mTexFileBillboard.GetItemStr() == attribute.mTexFileBillboard.GetItemStr();
        });
        plan.spriteLook.texture = (*same)->GetTextureName();
    }
}

void SequentialDraw_cls::MixBlending() {
    constexpr unsigned int kKinds = 2;
    std::array<bool, kKinds> used{};
    for (const Plan& plan : mPlans) {
        if (plan.drawsSprite && plan.spriteLook.blendType < kKinds) used[plan.spriteLook.blendType] = true;
    }
    if (!used[0] || !used[1] || !SpriteBatch_cls::CanMixBlending()) return;
    for (Plan& plan : mPlans) {
        if (plan.spriteLook.blendType >= kKinds) continue;
        plan.spriteRule.marksAdditive = plan.spriteLook.blendType == GLAttribute_cls::kAdditive;
        plan.spriteLook.mixedBlending = true;
        plan.spriteLook.blendType = 0;
    }
}

void SequentialDraw_cls::Draw(std::span<const ArrayAndIndex_cls> order, const Shadows& shadows,
                              SpriteBatch_cls& sprites, SphereBatch_cls& spheres,
                              DrawProgress_cls& progress) {
    mSprites = &sprites;
    mSpheres = &spheres;
    mShadows = &shadows;
    for (size_t begin = 0; begin < order.size(); begin += mBlock) {
        const size_t end = std::min(begin + mBlock, order.size());
        for (size_t i = begin; i < end; ++i) {
            const auto particle = static_cast<size_t>(order[i].mIndex);
            const uint8_t type = mType[particle];
            const Plan& plan = mPlans[type < mPlans.size() ? type : 0];
            if (plan.drawsSprite) AddSprite(particle, plan);
            if (!plan.drawsSphere) continue;
            AddSphere(particle, order[i].mAlpha, shadows.masks.empty() ? uint8_t{0} : shadows.masks[i], plan);
        }
        if (!progress.Step(end)) break;
    }
    Flush();
}

void SequentialDraw_cls::AddSprite(size_t particle, const Plan& plan) {
    // Points go with any picture.
    const bool fits = plan.spriteLook.blendType == mSpriteLook.blendType &&
                      plan.spriteLook.mixedBlending == mSpriteLook.mixedBlending &&
                      (plan.spriteLook.texture == mSpriteLook.texture || plan.spriteLook.texture == 0 ||
                       mSpriteLook.texture == 0);
    if (mPending != Pending::Sprites || !fits || mLists.sprites.sprites.size() >= kSequentialBlock) {
        Flush();
        mPending = Pending::Sprites;
        mSpriteLook = plan.spriteLook;
    }
    if (plan.spriteLook.texture != 0) mSpriteLook.texture = plan.spriteLook.texture;
    mLists.sprites.Add(mSpritePacker, particle, plan.spriteRule);
}

void SequentialDraw_cls::AddSphere(size_t particle, float alpha, uint8_t shadow, const Plan& plan) {
    // The shadow of an only light is part of the material; of several, those in shadow are turned down.
    const bool isOnly = mShadows->lights == 1;
    const float lit = isOnly && shadow != 0 ? mShadows->lightLeft : 1.0F;
    const uint8_t mask = isOnly ? uint8_t{0} : shadow;
    const bool fits = plan.sphereLook == mSphereLook && mask == mShadowMask;
    if (mPending != Pending::Spheres || !fits || mLists.spheres.size() >= mBlock) {
        Flush();
        mPending = Pending::Spheres;
        mSphereLook = plan.sphereLook;
        if (mask != mShadowMask) mShadows->load(mask);
        mShadowMask = mask;
    }
    Sphere_cls sphere;
    const auto shape = mSpherePacker.Pack(particle, *plan.sphereRule, alpha, lit, &sphere);
    if (shape == SpherePacker_cls::Shape::Hidden) return;
    mLists.spheres.push_back(sphere);
    mLists.sphereShapes.push_back(shape);
}

void SequentialDraw_cls::Flush() {
    if (mPending == Pending::Sprites && !mLists.sprites.sprites.empty()) {
        mSprites->Begin(mView, mSpriteLook);
        mSprites->Draw(mSpritePacker, mLists.sprites.sprites, mLists.sprites.shapes);
    }
    if (mPending == Pending::Spheres && !mLists.spheres.empty()) {
        mSpheres->Begin(mView, mSphereLook);
        mSpheres->Draw(mLists.spheres, mLists.sphereShapes);
    }
    mLists.sprites.Clear();
    mLists.spheres.clear();
    mLists.sphereShapes.clear();
    mPending = Pending::None;
}
