#pragma once

#include <vector>

class ColorCurve_cls;
class DrawOption_cls;
class PDataSequence_cls;
class SnapData_cls;

/// The values that feed a colour curve at the instant of the state: of the particles drawn by the attribute
/// of the sequence that owns the curve, of all particles for any other curve. Empty when the curve depends on
/// nothing known or there are no particles. A copy: later instants do not change it.
/// Threads: GUI thread.
std::vector<float> CollectCurveValues(const ColorCurve_cls& curve, PDataSequence_cls& sequence,
                                      const SnapData_cls& state, const DrawOption_cls& option);
