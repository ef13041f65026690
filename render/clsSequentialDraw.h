#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "render/clsArrayAndIndex.h"
#include "render/clsDisplayedState.h"
#include "render/clsSphereBatch.h"
#include "render/clsSpriteBatch.h"

class DrawProgress_cls;

/// One pass over the draw order in which each particle is drawn with the attribute of its type. Particles
/// that follow one another and can be sent together are: points and billboards as long as they have one
/// picture, spheres as long as they look alike. "Both" is the billboard, then the sphere.
/// Made for one draw. Threads: the thread of the context.
class SequentialDraw_cls {
  public:
    /// Lists whose memory is kept between frames.
    struct Lists {
        SpriteList_cls sprites;
        std::vector<Sphere_cls> spheres;
        std::vector<SpherePacker_cls::Shape> sphereShapes;
    };
    /// The lights' shadows on each entry of the order, a bit for each light; empty for none.
    struct Shadows {
        std::span<const uint8_t> masks{};
        float lightLeft = 0.0F;
        int lights = 0;
        /// Puts the lights of a mask into shadow.
        std::function<void(uint8_t mask)> load{};
    };
    using SphereLooks = std::array<SphereBatch_cls::Look, 4>;

    SequentialDraw_cls(const DrawView_cls& view, const SnapData_cls& state,
                       const DrawAttributes_cls& attributes, int step, const SphereLooks& sphereLooks,
                       Lists& lists);

    void Draw(std::span<const ArrayAndIndex_cls> order, const Shadows& shadows, SpriteBatch_cls& sprites,
              SphereBatch_cls& spheres, DrawProgress_cls& progress);

  private:
    enum class Pending { None, Sprites, Spheres };

    /// How the particles of one type are drawn.
    struct Plan {
        bool drawsSprite = false;
        bool drawsSphere = false;
        SpriteRule_cls spriteRule;
        SpriteBatch_cls::Look spriteLook;
        std::optional<SphereRule_cls> sphereRule;
        SphereBatch_cls::Look sphereLook;
    };
    void MakePlans(const SnapData_cls& state, const DrawAttributes_cls& attributes, int step);
    void MixBlending();
    void AddSprite(size_t particle, const Plan& plan);
    void AddSphere(size_t particle, float alpha, uint8_t shadow, const Plan& plan);
    void Flush();

    const DrawView_cls& mView;
    const SpritePacker_cls mSpritePacker;
    const SpherePacker_cls mSpherePacker;
    const uint8_t* mType;
    size_t mBlock;  ///< particles between two looks at the progress
    std::array<Plan, 4> mPlans;
    Lists& mLists;
    SpriteBatch_cls* mSprites = nullptr;
    SphereBatch_cls* mSpheres = nullptr;
    const Shadows* mShadows = nullptr;
    Pending mPending = Pending::None;
    SpriteBatch_cls::Look mSpriteLook;
    SphereBatch_cls::Look mSphereLook;
    uint8_t mShadowMask = 0;
};
