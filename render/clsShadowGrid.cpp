#include "render/clsShadowGrid.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

#include "interp/clsThreadSnapInterpolate.h"

namespace {

/// Cells are not made smaller than this part of all spheres' extent, so that they can be counted.
constexpr int kFinest = -40;

}  // namespace

void ShadowGrid_cls::Build(const LightProjection_cls& projection, std::span<const ArrayAndIndex_cls> entries,
                           const float* positions, std::span<const float> radii) {
    mDimensions = projection.GetDimensions();
    CollectSpheres(projection, entries, positions, radii);
    FillBuckets();
    SortBuckets();
}

void ShadowGrid_cls::CollectSpheres(const LightProjection_cls& projection,
                                    std::span<const ArrayAndIndex_cls> entries, const float* positions,
                                    std::span<const float> radii) {
    Sphere* const spheres = mSpheres.Reserve(entries.size());
    mCount = 0;
    double extent = 0.0;
    for (size_t k = 0; k < entries.size(); ++k) {
        if (!(radii[k] > 0.0F) || std::isinf(radii[k])) continue;
        const auto place = projection.Project(positions + 3 * static_cast<size_t>(entries[k].mIndex));
        if (!place.IsFinite()) continue;
        const auto radius = static_cast<float>(projection.ProjectRadius(place.mDepth, radii[k]));
        if (radius <= 0.0F) continue;
        spheres[mCount++] = {place.mAcross, radius, place.mDepth};
        for (const double across : place.mAcross) extent = std::max(extent, std::abs(across));
    }
    mFinest = extent > 0.0 ? std::ilogb(extent) + kFinest : kFinest;
}

/// The level of the first cells wider than a sphere of this radius.
inline ShadowGrid_cls::Level ShadowGrid_cls::LevelOf(float radius) const {
    // Straight from the numbers' exponents: this is asked for every sphere.
    const auto radiusExponent = static_cast<int>(std::bit_cast<uint32_t>(radius) >> 23) - 127;
    const int exponent = std::max(radiusExponent + 2, mFinest);
    return {exponent, std::bit_cast<double>(static_cast<uint64_t>(1023 - exponent) << 52)};
}

inline int64_t ShadowGrid_cls::CellAt(double across, const Level& level) {
    // Places beyond all spheres may be anywhere.
    constexpr double kFarthest = 4e18;
    const double cells = std::clamp(across * level.scale, -kFarthest, kFarthest);
    const auto towardsZero = static_cast<int64_t>(cells);
    return towardsZero - (cells < static_cast<double>(towardsZero) ? 1 : 0);
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
    const size_t buckets = std::bit_ceil(mCount + 1);
    mBucketMask = buckets - 1;
    // The counts stand two entries further on, so that filling turns them into the begins.
    size_t* const begins = mBucketBegin.Reserve(buckets + 2);
    std::fill_n(begins, buckets + 2, 0U);
    const std::span<const Sphere> spheres(mSpheres.Get(), mCount);
    for (const Sphere& sphere : spheres) {
        const Level level = LevelOf(sphere.radius);
        if (std::ranges::find(mLevels, level.exponent, &Level::exponent) == mLevels.end()) {
            mLevels.push_back(level);
        }
        ForEachBucket(sphere, [begins](size_t bucket) { ++begins[bucket + 2]; });
    }
    std::partial_sum(begins, begins + buckets + 2, begins);
    Sphere* const list = mList.Reserve(begins[buckets + 1]);
    for (const Sphere& sphere : spheres) {
        ForEachBucket(sphere, [&](size_t bucket) { list[begins[bucket + 1]++] = sphere; });
    }
}

void ShadowGrid_cls::SortBuckets() {
    const size_t* const begins = mBucketBegin.Get();
    Sphere* const list = mList.Get();
    ThreadSnapInterpolate_cls::RunAll(static_cast<int>(mBucketMask + 1), [begins, list](int begin, int end) {
        for (int bucket = begin; bucket < end; ++bucket) {
            std::ranges::sort(list + begins[bucket], list + begins[bucket + 1], {}, &Sphere::depth);
        }
    });
}

bool ShadowGrid_cls::IsShadowed(const LightProjection_cls::Place& place, float length) const {
    for (const Level& level : mLevels) {
        Cell cell{};
        for (size_t d = 0; d < mDimensions; ++d) cell[d] = CellAt(place.mAcross[d], level);
        const size_t bucket = BucketOf(level, cell);
        const Sphere* const begin = mList.Get() + mBucketBegin.Get()[bucket];
        const Sphere* const end = mList.Get() + mBucketBegin.Get()[bucket + 1];
        const Sphere* before = std::partition_point(
            begin, end, [&place](const Sphere& sphere) { return sphere.depth < place.mDepth; });
        while (before != begin) {
            const Sphere& sphere = *--before;
            if (place.mDepth - sphere.depth > length) break;
            double squared = 0.0;
            for (size_t d = 0; d < 3; ++d) {
                squared += (place.mAcross[d] - sphere.across[d]) * (place.mAcross[d] - sphere.across[d]);
            }
            if (squared <= double{sphere.radius} * sphere.radius) return true;
        }
    }
    return false;
}
