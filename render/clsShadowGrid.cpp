#include "render/clsShadowGrid.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

namespace {

/// Cells are not made smaller than this part of all spheres' extent, so that they can be counted.
constexpr int kFinest = -40;
constexpr size_t kBucketsPerSphere = 2;

}  // namespace

void ShadowGrid_cls::Build(const LightProjection_cls& projection, std::span<const ArrayAndIndex_cls> entries,
                           const float* positions, std::span<const float> radii) {
    mDimensions = projection.GetDimensions();
    CollectSpheres(projection, entries, positions, radii);
    SortByDepth();
    FillBuckets();
}

void ShadowGrid_cls::CollectSpheres(const LightProjection_cls& projection,
                                    std::span<const ArrayAndIndex_cls> entries, const float* positions,
                                    std::span<const float> radii) {
    mUnsorted.clear();
    double extent = 0.0;
    for (size_t k = 0; k < entries.size(); ++k) {
        if (!(radii[k] > 0.0F) || std::isinf(radii[k])) continue;
        const auto place = projection.Project(positions + 3 * static_cast<size_t>(entries[k].mIndex));
        if (!place.IsFinite()) continue;
        const double radius = projection.ProjectRadius(place.mDepth, radii[k]);
        if (radius <= 0.0) continue;
        mUnsorted.push_back({place.mAcross, radius, place.mDepth});
        for (const double across : place.mAcross) extent = std::max(extent, std::abs(across));
    }
    mFinest = extent > 0.0 ? std::ilogb(extent) + kFinest : kFinest;
}

void ShadowGrid_cls::SortByDepth() {
    ArrayAndIndex_cls* order = mOrder.Reserve(mUnsorted.size());
    for (size_t k = 0; k < mUnsorted.size(); ++k) {
        order[k] = {.mIndex = static_cast<int32_t>(k), .mKey = mUnsorted[k].depth, .mAlpha = 1.0F};
    }
    mSort.Sort(mOrder, mUnsorted.size());
    mSpheres.resize(mUnsorted.size());
    for (size_t k = 0; k < mSpheres.size(); ++k) {
        mSpheres[k] = mUnsorted[static_cast<size_t>(mOrder.Get()[k].mIndex)];
    }
}

/// The level of the first cells wider than a sphere of this radius.
inline ShadowGrid_cls::Level ShadowGrid_cls::LevelOf(double radius) const {
    const int exponent = std::max(std::ilogb(2.0 * radius) + 1, mFinest);
    return {exponent, std::ldexp(1.0, -exponent)};
}

inline int64_t ShadowGrid_cls::CellAt(double across, const Level& level) {
    // Places beyond all spheres may be anywhere.
    constexpr double kFarthest = 4e18;
    return static_cast<int64_t>(std::clamp(std::floor(across * level.scale), -kFarthest, kFarthest));
}

inline size_t ShadowGrid_cls::BucketOf(const Level& level, const Cell& cell) const {
    auto hash = static_cast<uint64_t>(level.exponent);
    for (const int64_t number : cell) {
        hash = (hash ^ static_cast<uint64_t>(number)) * 0x9e3779b97f4a7c15U;
        hash ^= hash >> 32;
    }
    return hash & mBucketMask;
}

template <class Use>
void ShadowGrid_cls::ForEachBucket(const Sphere& sphere, const Use& use) const {
    const Level level = LevelOf(sphere.radius);
    Cell low{};
    Cell high{};
    for (size_t d = 0; d < mDimensions; ++d) {
        low[d] = CellAt(sphere.across[d] - sphere.radius, level);
        high[d] = CellAt(sphere.across[d] + sphere.radius, level);
    }
    Cell cell;
    for (cell[0] = low[0]; cell[0] <= high[0]; ++cell[0]) {
        for (cell[1] = low[1]; cell[1] <= high[1]; ++cell[1]) {
            for (cell[2] = low[2]; cell[2] <= high[2]; ++cell[2]) use(BucketOf(level, cell));
        }
    }
}

void ShadowGrid_cls::FillBuckets() {
    mLevels.clear();
    const size_t buckets = std::bit_ceil(kBucketsPerSphere * mSpheres.size() + 1);
    mBucketMask = buckets - 1;
    // The counts stand two entries further on, so that filling turns them into the begins.
    mBucketBegin.assign(buckets + 2, 0);
    for (const Sphere& sphere : mSpheres) {
        const Level level = LevelOf(sphere.radius);
        if (std::ranges::find(mLevels, level.exponent, &Level::exponent) == mLevels.end()) {
            mLevels.push_back(level);
        }
        ForEachBucket(sphere, [this](size_t bucket) { ++mBucketBegin[bucket + 2]; });
    }
    std::partial_sum(mBucketBegin.begin(), mBucketBegin.end(), mBucketBegin.begin());
    mList.resize(mBucketBegin.back());
    for (size_t k = 0; k < mSpheres.size(); ++k) {
        ForEachBucket(mSpheres[k], [this, k](size_t bucket) {
            mList[mBucketBegin[bucket + 1]++] = static_cast<uint32_t>(k);
        });
    }
}

bool ShadowGrid_cls::IsShadowed(const LightProjection_cls::Place& place, float length) const {
    for (const Level& level : mLevels) {
        Cell cell{};
        for (size_t d = 0; d < mDimensions; ++d) cell[d] = CellAt(place.mAcross[d], level);
        const size_t bucket = BucketOf(level, cell);
        const auto begin = mList.begin() + static_cast<std::ptrdiff_t>(mBucketBegin[bucket]);
        const auto end = mList.begin() + static_cast<std::ptrdiff_t>(mBucketBegin[bucket + 1]);
        auto before =
            std::partition_point(begin, end, [&](uint32_t k) { return mSpheres[k].depth < place.mDepth; });
        while (before != begin) {
            const Sphere& sphere = mSpheres[*--before];
            if (place.mDepth - sphere.depth > length) break;
            double squared = 0.0;
            for (size_t d = 0; d < 3; ++d) {
                squared += (place.mAcross[d] - sphere.across[d]) * (place.mAcross[d] - sphere.across[d]);
            }
            if (squared <= sphere.radius * sphere.radius) return true;
        }
    }
    return false;
}
