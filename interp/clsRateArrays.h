#pragma once

#include <cstdint>

/// The arrays that a rate stage works on: snapshot A, the next one B, and where A's rates go. All
/// borrowed. Positions and velocities are three floats a particle. IDs may be null: then no particle is
/// found by its ID.
struct RateArrays_cls {
    int mCountA = 0;
    const float* mPositionA = nullptr;
    const float* mRadiusA = nullptr;
    const float* mValue1A = nullptr;
    const int32_t* mIDA = nullptr;

    int mCountB = 0;
    const float* mPositionB = nullptr;
    const float* mRadiusB = nullptr;
    const float* mValue1B = nullptr;
    const int32_t* mIDB = nullptr;

    float* mVelocity = nullptr;    ///< of A
    float* mRadiusWork = nullptr;  ///< change of A's radius per time unit
    float* mValue1Work = nullptr;  ///< change of A's value1 per time unit
};
