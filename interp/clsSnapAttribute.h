#pragma once

#include <array>

#include "render/clsColorCurve.h"

/// What the drawable state takes from the draw attribute of one particle type. A copy of its settings, and
/// its curves, which must outlive the state's construction. GUI thread.
struct SnapAttribute_cls {
    enum DrawType : unsigned int { kPoint, kBillboard, kSphere, kBoth, kHide };
    enum AlphaType : unsigned int { kConstantAlpha, kDependOnRadius };
    enum Curve { kColor, kAmbient, kDiffuse, kSpecular, kCurveCount };

    unsigned int drawType = kPoint;
    unsigned int alphaType = kConstantAlpha;
    float alphaDependBase = 1.0F;  ///< squared, the factor of alpha that depends on the radius
    float alphaFactor = 1.0F;      ///< the factor of constant alpha
    std::array<ColorCurve_cls*, kCurveCount> curves{};
};

/// The attributes of particle types 0 to 3.
using SnapAttributes_cls = std::array<SnapAttribute_cls, 4>;
