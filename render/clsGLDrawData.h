#pragma once

#include <cstdint>
#include <span>

/// Draws the particles of one snapshot into the current context.
/// Threads: the thread of the context. Positions are three floats a particle; those that are not finite are
/// left out.
class GLDrawData_cls {
  public:
    /// Points coloured by type, nearer ones in front. Size in pixels.
    void GLDrawPointAll(std::span<const float> positions, std::span<const uint8_t> types, float pointSize);
};
