#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// What makes a particle look as it does in the picture. Colours 0 to 1, alpha last.
struct PovLook_cls {
    enum class Kind : uint8_t {
        Glow,       ///< shines of itself: a point
        Billboard,  ///< the same through the attribute's texture
        Sphere      ///< lit
    };

    Kind kind = Kind::Glow;
    uint8_t attribute = 0;            ///< whose texture it has: billboards only
    bool isAdditive = false;          ///< adds to what lies behind and covers nothing
    std::array<float, 4> color{};     ///< of a sphere: diffuse
    std::array<float, 3> ambient{};   ///< spheres only
    std::array<float, 3> specular{};  ///< spheres only

    bool operator==(const PovLook_cls&) const = default;
    /// Whether anything behind shows through.
    bool IsTransparent() const { return isAdditive || kind == Kind::Billboard || color[3] < 1.0F; }
};

/// The looks of one frame. Particles whose looks cannot be told apart share one, so that the renderer keeps
/// few textures: the first one met stands for all. Threads: one at a time.
class PovPalette_cls {
  public:
    /// Looks are apart by 1/255 in a colour and 2 % in alpha; fine ones by 1/65535 and 0.03 %.
    explicit PovPalette_cls(bool isFine) : mColorSteps(isFine ? 65535.0F : 255.0F), mIsFine(isFine) {}

    /// The number of a look. What is no number counts as 0, what lies outside of 0 to 1 as the nearer end.
    uint32_t Find(PovLook_cls look);
    const std::vector<PovLook_cls>& GetLooks() const { return mLooks; }

  private:
    /// No look's key is all zeros.
    struct Key {
        uint64_t a = 0, b = 0, c = 0;
        bool operator==(const Key&) const = default;
        bool IsEmpty() const { return c == 0; }
    };
    struct Entry {
        Key key;
        uint32_t number = 0;
    };
    Key KeyOf(const PovLook_cls& look) const;
    Entry& EntryOf(const Key& key);
    void Grow();

    float mColorSteps;
    bool mIsFine;
    std::vector<PovLook_cls> mLooks;
    std::vector<Entry> mTable{1024};  ///< by hash; at most half of it is used
    PovLook_cls mLast;                ///< neighbours in a file often look alike
    uint32_t mLastNumber = 0;
};
