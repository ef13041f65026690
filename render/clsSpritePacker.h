#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "render/clsDrawView.h"
#include "render/clsThinning.h"

class GLAttribute_cls;
class SnapData_cls;

/// A point or a billboard as it is sent to OpenGL.
struct Sprite_cls {
    std::array<float, 3> position;  ///< relative, see DrawView_cls
    float size;                     ///< half a billboard's side in data lengths; minus a point's in pixels
    std::array<float, 4> colour;    ///< 0 to 1, see also SpriteRule_cls::marksAdditive
};

/// One corner of a sprite drawn as a rectangle.
struct SpriteCorner_cls {
    std::array<float, 3> position;
    std::array<float, 3> place;  ///< in the texture; 1 where the texture counts
    std::array<float, 4> colour;
};

/// How the particles of one attribute become sprites.
struct SpriteRule_cls {
    /// `alphaTwice`: the factor of constant alpha counts once more, although the state's colours hold it. The
    /// threaded billboard path has always drawn so, and saved scenes are tuned to it.
    static SpriteRule_cls Of(const GLAttribute_cls& attribute, bool isPoint, int step,
                             Thinning_cls::Form form, bool alphaTwice = false);

    bool isPoint = true;
    float pixelSize = 1.0F;
    bool isConstantRadius = false;
    float radiusFactor = 1.0F;  ///< with the thinning's
    bool dependsOnRadius = false;
    float alphaFactor = 1.0F;  ///< with the thinning's
    float alphaMax = 1.0F;
    bool marksAdditive = false;  ///< a negative alpha tells that the sprite is added to the picture
};

/// Turns particles into sprites: plain computation, no OpenGL. What cannot be seen is found out here: a
/// particle without a place, outside the window, or so small that it covers no pixel's middle.
/// A sprite draws the same pixels as a rectangle, faster, where all of this holds: its middle lies in the
/// window (else OpenGL clips it whole), and its size is one that points may have.
/// Threads: any number while nobody changes what it borrows.
class SpritePacker_cls {
  public:
    enum class Shape : uint8_t { Hidden, Sprite, Quad };

    /// Both outlive the packer.
    SpritePacker_cls(const DrawView_cls& view, const SnapData_cls& state);

    /// The sprite of a particle, unless it is hidden.
    Shape Pack(size_t particle, const SpriteRule_cls& rule, Sprite_cls* sprite) const;
    /// The four corners of the same sprite as a rectangle.
    void MakeQuad(const Sprite_cls& sprite, SpriteCorner_cls* corners) const;

  private:
    float ColourAlpha(size_t particle, const SpriteRule_cls& rule, float radius) const;
    Shape Classify(const Sprite_cls& sprite) const;

    const DrawView_cls& mView;
    const SnapData_cls& mState;
    float mPixelsPerLength;
};

/// Sprites in draw order, with the shape of each; hidden ones are not kept.
struct SpriteList_cls {
    std::vector<Sprite_cls> sprites;
    std::vector<SpritePacker_cls::Shape> shapes;

    void Clear() {
        sprites.clear();
        shapes.clear();
    }
    void Add(const SpritePacker_cls& packer, size_t particle, const SpriteRule_cls& rule) {
        Sprite_cls sprite;
        const auto shape = packer.Pack(particle, rule, &sprite);
        if (shape == SpritePacker_cls::Shape::Hidden) return;
        sprites.push_back(sprite);
        shapes.push_back(shape);
    }
};
