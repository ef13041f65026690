#pragma once

#include <span>
#include <vector>

#include "render/clsSpherePacker.h"

class ShaderProgram_cls;

/// Sends spheres to OpenGL: as triangles, many in one call, or ray-cast, where each pixel meets the sphere
/// itself. Always in their order.
/// Owned by GLDrawData_cls. Threads: the thread of the context.
/// Failure: without the shader triangles are drawn by the fixed function, one sphere after the other, and
/// what should be ray-cast is drawn as triangles.
class SphereBatch_cls {
  public:
    /// "DrawQuality=": levels of triangles below, and rays.
    static constexpr unsigned int kRayCast = 3;
    /// Spheres sent together; a draw can be stopped in between.
    static constexpr size_t kChunk = 300;

    struct Look {
        unsigned int shaderType = 0;
        unsigned int quality = 0;
        unsigned int blendType = 0;
        int lights = 0;
        bool allDirected = true;
        bool operator==(const Look&) const = default;
    };

    /// Depth writes and blending on. The view's matrix and the lights are loaded.
    void Begin(const DrawView_cls& view, const Look& look);
    void Draw(std::span<const Sphere_cls> spheres, std::span<const SpherePacker_cls::Shape> shapes);

  private:
    void DrawRays(std::span<const Sphere_cls> spheres, bool quads);
    void DrawMeshes(std::span<const Sphere_cls> spheres) const;
    void DrawFixed(std::span<const Sphere_cls> spheres) const;
    ShaderProgram_cls* UseRays(bool quads) const;

    const DrawView_cls* mView = nullptr;
    Look mLook;
};
