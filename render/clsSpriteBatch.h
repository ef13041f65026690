#pragma once

#include <span>
#include <vector>

#include "render/clsSpritePacker.h"

/// Sends sprites to OpenGL: as point sprites where these draw the same pixels, else as rectangles; always in
/// their order.
/// Owned by GLDrawData_cls; its memory is kept between frames. Threads: the thread of the context.
/// Failure: without its shader everything is drawn as fixed-function rectangles.
class SpriteBatch_cls {
  public:
    struct Look {
        unsigned int texture = 0;  ///< 0: points only
        unsigned int blendType = 0;
        /// Both kinds of blending come one after the other, told by each sprite's colour: a negative alpha
        /// adds. Only where CanMixBlending().
        bool mixedBlending = false;
    };

    static bool CanMixBlending();
    /// Blending of an attribute's BlendType; an unknown one leaves the blend function as it is.
    static void SetBlending(unsigned int blendType);

    /// Blending on, depth writes off. The view's matrix is loaded.
    void Begin(const DrawView_cls& view, const Look& look);
    void Draw(const SpritePacker_cls& packer, std::span<const Sprite_cls> sprites,
              std::span<const SpritePacker_cls::Shape> shapes);
    /// Points of one size only, without a program.
    static void DrawPoints(std::span<const Sprite_cls> sprites);

  private:
    void DrawSprites(std::span<const Sprite_cls> sprites);
    void DrawQuads(const SpritePacker_cls& packer, std::span<const Sprite_cls> sprites);
    void DrawFixedQuads() const;
    /// Switches the program for one form on; false where there is none.
    bool UseProgram(bool quads);

    const DrawView_cls* mView = nullptr;
    Look mLook;
    std::vector<SpriteCorner_cls> mCorners;
};
