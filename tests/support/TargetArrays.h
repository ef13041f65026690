#pragma once

#include <cstdint>
#include <vector>

#include "data/clsParticleTarget.h"

/// The arrays of a snapshot for tests of readers, zeros at first.
class TargetArrays_cls {
  public:
    explicit TargetArrays_cls(int count) : mCount(count) {
        const auto n = static_cast<size_t>(count);
        for (auto* vectors : {&mPosition, &mVelocity}) vectors->resize(3 * n);
        for (auto* scalars : {&mRadius, &mValue1}) scalars->resize(n);
        mType.resize(n);
        mID.resize(n);
    }

    ParticleTarget_cls Target() {
        return {.mCount = mCount,
                .mPosition = mPosition.data(),
                .mVelocity = mVelocity.data(),
                .mRadius = mRadius.data(),
                .mValue1 = mValue1.data(),
                .mType = mType.data(),
                .mID = mID.data()};
    }
    bool operator==(const TargetArrays_cls&) const = default;

    int mCount;
    std::vector<float> mPosition, mVelocity, mRadius, mValue1;
    std::vector<uint8_t> mType;
    std::vector<int32_t> mID;
};
