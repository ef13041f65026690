#pragma once

#include <cstdint>

/// One particle's place in the order in which a frame is drawn.
/// Plain data: made by DrawOrder_cls, read by the drawing, which may change the alpha multiplier.
struct ArrayAndIndex_cls {
    int32_t mIndex;  ///< in the arrays of the drawable state
    float mKey;      ///< ascending keys are drawn first to last
    float mAlpha;    ///< what a sphere's alpha is multiplied by
};
