#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// A unit sphere of triangles: an icosahedron whose triangles are cut in four, level by level. Vertices are
/// their own normals; triangles are counter-clockwise seen from outside.
/// Plain data; levels 1 to 3 have 80, 320 and 1280 triangles.
class SphereModel_cls {
  public:
    using Vertex = std::array<float, 3>;

    static constexpr int kLevels = 3;
    /// The shared model of a level, 1 to kLevels.
    static const SphereModel_cls& Get(int level);

    const std::vector<Vertex>& GetVertices() const { return mVertices; }
    const std::vector<uint16_t>& GetIndices() const { return mIndices; }

  private:
    explicit SphereModel_cls(int level);
    void Divide();

    std::vector<Vertex> mVertices;
    std::vector<uint16_t> mIndices;
};
