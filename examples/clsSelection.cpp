#include "clsSelection.h"

#include <algorithm>
#include <utility>

#include "clsRandom.h"

namespace {

constexpr double kVaryingShare = 0.05;

// The model draws from stream 0.
constexpr std::uint64_t kVaryStream = 1;
constexpr std::uint64_t kFirstShuffleStream = 2;

}  // namespace

Selection_cls::Selection_cls(std::size_t particleCount, std::size_t snapshotCount, std::uint64_t seed)
    : mParticleCount(particleCount), mSnapshotCount(snapshotCount), mSeed(seed) {}

void Selection_cls::Vary() {
    const auto all = static_cast<std::uint32_t>(mSnapshotCount);
    mPresences.assign(mParticleCount, {0, all});
    if (all < 2) {
        return;
    }
    // Nobody may be missing from every snapshot: so a change comes after the first and before the end.
    const std::uint32_t half = std::max(all / 2, 1U);
    Random_cls random(mSeed, kVaryStream);
    for (std::size_t i = 1; i < mParticleCount; ++i) {
        const double share = random.Uniform();
        if (share < 0.5 * kVaryingShare) {
            mPresences[i].mFirst = 1 + static_cast<std::uint32_t>(random.Below(half));
        } else if (share < kVaryingShare) {
            mPresences[i].mEnd = half + static_cast<std::uint32_t>(random.Below(all - half));
        }
    }
}

std::vector<std::uint32_t> Selection_cls::Indices(std::size_t snapshot) const {
    std::vector<std::uint32_t> indices;
    indices.reserve(mParticleCount);
    for (std::size_t i = 0; i < mParticleCount; ++i) {
        if (mPresences.empty() || (snapshot >= mPresences[i].mFirst && snapshot < mPresences[i].mEnd)) {
            indices.push_back(static_cast<std::uint32_t>(i));
        }
    }
    if (mShuffle) {
        // The standard shuffle may differ between libraries.
        Random_cls random(mSeed, kFirstShuffleStream + snapshot);
        for (std::size_t left = indices.size(); left > 1; --left) {
            std::swap(indices[left - 1], indices[random.Below(left)]);
        }
    }
    return indices;
}
