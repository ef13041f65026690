#pragma once

#include <algorithm>

#include "timeline/clsParameters.h"

/// A key that is not selected.
inline KeyFrame_cls Key(double time, double value, unsigned int type = KeyFrame_cls::kLinear,
                        double velocity = 0.0, double easeFactor = 0.0) {
    KeyFrame_cls key;
    key.Set(time, type, value, velocity, easeFactor, false);
    return key;
}

/// Keys are finite and sorted, and automatic tangents up to date.
inline bool IsSound(const Parameters_cls& parameter) {
    std::vector<KeyFrame_cls> keys = parameter.GetKeys();
    if (!std::ranges::is_sorted(keys, {}, &KeyFrame_cls::mTime)) return false;
    KeyCurve_cls::AdjustAuto(keys, parameter.GetState().periodic, 0, keys.size());
    return keys == parameter.GetKeys() && std::ranges::all_of(keys, &KeyFrame_cls::IsFinite);
}
