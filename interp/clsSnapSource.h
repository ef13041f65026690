#pragma once

#include <cstdint>

class PDataBlock_cls;

/// The arrays of the snapshot that a drawable state is made of. All borrowed. IDs may be null and then
/// count as 0.
struct SnapSource_cls {
    static SnapSource_cls Of(const PDataBlock_cls& block);

    const PDataBlock_cls* block = nullptr;  ///< tells one snapshot from another; never followed
    int count = 0;
    double time = 0.0;
    const float* position = nullptr;
    const float* velocity = nullptr;
    const float* radius = nullptr;
    const float* radiusWork = nullptr;
    const float* value1 = nullptr;
    const float* value1Work = nullptr;
    const uint8_t* type = nullptr;
    const int32_t* id = nullptr;
};
