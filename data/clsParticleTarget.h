#pragma once

#include <cstdint>

/// The arrays of one snapshot that a reader fills, one element per particle (positions and velocities three
/// floats). Borrowed from the block; a reader writes nothing else. IDs null: the block has none.
struct ParticleTarget_cls {
    int mCount = 0;
    float* mPosition = nullptr;
    float* mVelocity = nullptr;
    float* mRadius = nullptr;
    float* mValue1 = nullptr;
    uint8_t* mType = nullptr;
    int32_t* mID = nullptr;

    static constexpr uint8_t kMaxType = 4;

    /// Types outside 0 to 4 become 4, negative ones too: seen as unsigned they are large.
    static uint8_t ClampType(int32_t type) {
        const auto asUnsigned = static_cast<uint32_t>(type);
        return asUnsigned > kMaxType ? kMaxType : static_cast<uint8_t>(asUnsigned);
    }
};
