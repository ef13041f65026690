#pragma once

/// How much larger and less transparent particles are drawn when only every n-th is, so that the picture
/// keeps its density. Plain numbers; a step below 1 counts as 1, and 1 gives exactly 1. The clamped form
/// is that of spheres, points and the mixed path; the unclamped one that of billboards of a single
/// attribute. Both are needed: pictures made with either must not change. Beyond steps of some hundred the
/// unclamped alpha factor is negative, and stays so.
class Thinning_cls {
  public:
    enum class Form { Clamped, Unclamped };

    static float GetRadiusFactor(int step, Form form);
    static float GetAlphaFactor(int step, Form form);
};
