#pragma once

#include <cstdint>
#include <span>

/// Draws the particles of one snapshot into the current context.
/// Threads: the thread of the context. Positions are three floats a particle; those that are not finite are
/// left out.
class GLDrawData_cls {
  public:
    /// Points coloured by type. Size in pixels. Opaque ones hide what lies behind them; glowing ones add up,
    /// so that crowded places shine, and need no order.
    enum class Look { Opaque, Glowing };
    void GLDrawPointAll(std::span<const float> positions, std::span<const uint8_t> types, float pointSize,
                        Look look);
};
