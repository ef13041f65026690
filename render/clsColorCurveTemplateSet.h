#pragma once

#include <memory>
#include <vector>

#include "render/clsColorCurve.h"

/// The curves of the template palette, in the order of its buttons. The palette copies their keys into the
/// curve that is being edited.
/// Threads: GUI thread.
class ColorCurveTemplateSet_cls {
  public:
    ColorCurveTemplateSet_cls();

    size_t GetNumber() const { return mCurves.size(); }
    const ColorCurve_cls& Get(size_t i) const { return *mCurves.at(i); }

  private:
    std::vector<std::unique_ptr<ColorCurve_cls>> mCurves;
};
