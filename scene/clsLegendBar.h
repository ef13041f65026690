#pragma once

#include "render/clsColorLegend.h"

class OverlayText_cls;

/// Draws the legend of a colour curve at the right of the picture: an upright bar, low values below, with
/// its numbers to the left and its title above. An empty legend draws nothing, nor does one for which the
/// picture is too small.
/// Threads: the thread of the context. Units: pixels of the whole target.
class LegendBar_cls {
  public:
    LegendBar_cls(int width, int height) : mWidth(width), mHeight(height) {}

    /// What a bar of this height has room for.
    int GetMaxTicks() const;
    void Draw(const ColorLegend_cls& legend, const OverlayText_cls& text) const;

    static constexpr size_t kSteps = 128;

  private:
    int GetBarHeight() const { return mHeight * 2 / 5; }
    void DrawBar(const ColorLegend_cls& legend, int left, int bottom, int width) const;

    int mWidth;
    int mHeight;
};
