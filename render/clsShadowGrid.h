#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "render/clsArrayAndIndex.h"
#include "render/clsKeptArray.h"
#include "render/clsLightProjection.h"

/// The spheres that throw shadow in one light, found by place: is one of them between a particle and the
/// light?
/// There are grids of several cell sizes, each twice the one before. A sphere is in the one whose cells are a
/// little larger than itself, in every cell that its outline touches. However much radii and distances
/// differ, that are few cells; and where many spheres share a cell, most places in it are covered, so that a
/// search ends soon. The cells of all grids share one table of buckets. What else is in a bucket fails the
/// test, which is exact. Owned by ShadowVolume_cls. Memory is kept between frames. Threads: built by one;
/// IsShadowed() by any number.
class ShadowGrid_cls {
  public:
    /// Makes the grids of all entries with a radius, in the light of this projection. One radius for each
    /// entry, in data lengths; entries without a finite radius above 0 throw no shadow.
    void Build(const LightProjection_cls& projection, std::span<const ArrayAndIndex_cls> entries,
               const float* positions, std::span<const float> radii);
    /// True where a sphere covers this place and its centre lies before it, by at most `length`.
    bool IsShadowed(const LightProjection_cls::Place& place, float length) const;

  private:
    using Across = std::array<double, 3>;
    using Cell = std::array<int64_t, 3>;
    /// Cells 2^exponent wide.
    struct Level {
        int exponent;
        double scale;  ///< cells per unit
    };
    struct Sphere {
        Across across;
        float radius;  ///< in the measure of `across`
        float depth;
    };

    void CollectSpheres(const LightProjection_cls& projection, std::span<const ArrayAndIndex_cls> entries,
                        const float* positions, std::span<const float> radii);
    void FillBuckets();
    void SortBuckets();

    Level LevelOf(float radius) const;
    static int64_t CellAt(double across, const Level& level);
    size_t BucketOf(const Level& level, const Cell& cell) const;
    template <class Use>
    void ForEachBucket(const Sphere& sphere, const Use& use) const;

    size_t mDimensions = 2;
    int mFinest = 0;  ///< exponent of the smallest cells
    std::vector<Level> mLevels;
    /// The spheres of bucket b: mList[mBucketBegin[b]] to mList[mBucketBegin[b + 1] - 1], ascending by depth.
    /// They are copied here, so that those of one bucket lie side by side.
    KeptArray_cls<size_t> mBucketBegin;
    KeptArray_cls<Sphere> mList;
    size_t mBucketMask = 0;

    KeptArray_cls<Sphere> mSpheres;
    size_t mCount = 0;  ///< of spheres
};
