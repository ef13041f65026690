#pragma once

class SnapData_cls;

/// Draws the particles of one instant into the current context.
/// Threads: the thread of the context. Particles whose position is not finite are left out.
class GLDrawData_cls {
  public:
    /// Points coloured by type. Size in pixels. Opaque ones hide what lies behind them; glowing ones add up,
    /// so that crowded places shine, and need no order.
    enum class Look { Opaque, Glowing };
    void GLDrawPointAll(const SnapData_cls& state, float pointSize, Look look);
};
