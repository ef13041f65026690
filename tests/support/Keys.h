#pragma once

#include "timeline/clsKeyFrame.h"

/// A key that is not selected.
inline KeyFrame_cls Key(double time, double value, unsigned int type = KeyFrame_cls::kLinear,
                        double velocity = 0.0, double easeFactor = 0.0) {
    KeyFrame_cls key;
    key.Set(time, type, value, velocity, easeFactor, false);
    return key;
}
