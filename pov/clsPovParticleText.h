#pragma once

#include <array>
#include <vector>

#include "pov/clsPovCloud.h"
#include "pov/clsPovText.h"
#include "pov/clsPovTexture.h"
#include "seam/clsPieceWork.h"

/// The particles of one frame as scene text, written in steps.
///
/// Spheres of one look stand in one union, which gives them its texture: that is parsed fastest and takes the
/// least memory. Billboards are the squares of one mesh, turned to the camera, with the attribute's texture
/// as a pattern of transparency; emitting media, the other likeness, cost a march through each of them.
///
/// Owns all that it writes. Threads: one at a time; a step fans out and returns when that is done, and the
/// text is the same whatever the number of threads.
class PovParticleText_cls {
  public:
    /// Sprites of the attributes that draw billboards.
    using Sprites = std::array<PovTexture_cls::Sprite, 4>;

    PovParticleText_cls(PovCloud_cls cloud, const PovTexture_cls& texture, Sprites sprites);

    /// Writes the next hundred thousand particles or so. False when nothing was left.
    bool Step(PovText_cls& text);
    /// 0 to 1.
    double GetShare() const;

  private:
    /// A list in the text: what opens it, and the lines of its entries.
    struct Stage {
        size_t count;
        void (PovParticleText_cls::*open)(PovText_cls& text) const;
        void (PovParticleText_cls::*write)(PovText_cls& text, size_t begin, size_t end) const;
    };

    void SortSpheres();
    void WriteSpheres(PovText_cls& text, size_t begin, size_t end) const;
    void OpenCorners(PovText_cls& text) const;
    void WriteCorners(PovText_cls& text, size_t begin, size_t end) const;
    void OpenFaces(PovText_cls& text) const;
    void WriteFaces(PovText_cls& text, size_t begin, size_t end) const;
    void OpenTexturePlaces(PovText_cls& text) const;
    void WriteTexturePlaces(PovText_cls& text, size_t begin, size_t end) const;
    void CloseMesh(PovText_cls& text) const;

    const PovCloud_cls mCloud;
    const PovTexture_cls mTexture;
    const Sprites mSprites;
    std::vector<size_t> mBegins;     ///< of each look, in the order
    std::vector<uint32_t> mOrder;    ///< spheres by look, each look's as they were
    std::vector<uint32_t> mNumbers;  ///< of each look among the mesh's textures
    uint32_t mTextures = 0;
    std::vector<Stage> mStages;
    size_t mStage = 0;
    size_t mDone = 0;  ///< entries of the stage
    std::array<PovText_cls, PieceWork_cls::kSlots> mPieces;
};
