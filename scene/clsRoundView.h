#pragma once

#include <array>
#include <functional>
#include <vector>

#include "render/clsPositionAndDirection.h"

/// A view of more than any plane can show. Fisheye: equal angles from the middle are equal lengths, in a disc
/// as wide as the picture's shorter side. Panoramic: longitude along the picture's width, latitude at the
/// same scale. What lies outside of the angle, or beyond the poles, keeps the background.
/// The scene is drawn into those of a cube's six faces that are seen, and these are laid over a mesh. Made
/// for one view and thrown away. Threads: the thread of the context; the mesh on any.
/// Units: pixels; angles in degrees up to 360; directions as the camera sees them: x right, y up, z back.
class RoundView_cls {
  public:
    enum class Kind { Fisheye, Panoramic };

    struct Vertex_cls {
        std::array<float, 2> pixel;      ///< from the lower left corner
        std::array<float, 3> direction;  ///< need not have length 1
    };

    /// The angle goes across the disc, or along the width.
    RoundView_cls(Kind kind, int width, int height, double angle);

    /// Quads, four vertices each.
    const std::vector<Vertex_cls>& GetMesh() const { return mMesh; }
    /// Which faces are seen: right, left, up, down, back, front.
    std::array<bool, 6> GetFaces() const;
    /// Of a face, so that the picture's middle keeps its sharpness.
    int GetFaceSide() const { return mFaceSide; }
    /// The pose that sees a face with 90 degrees across.
    static PositionAndDirection_cls TurnToFace(const PositionAndDirection_cls& camera, size_t face);

    /// Has every face drawn into a square buffer of GetFaceSide() pixels, then lays them out in the frame
    /// buffer that was bound before. False when the driver has no such buffer; nothing is drawn then.
    bool Draw(const PositionAndDirection_cls& camera,
              const std::function<void(const PositionAndDirection_cls& face, int side)>& drawFace) const;

  private:
    void MakeDisc(double scale, double angle);
    void MakeRectangle(double scale, double angle);
    void LayOut() const;

    int mWidth;
    int mHeight;
    int mFaceSide;
    std::vector<Vertex_cls> mMesh;
};
