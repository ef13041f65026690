#pragma once

#include <array>
#include <functional>
#include <span>

#include "render/clsZSort.h"

/// Order in which the particles of one frame are drawn, rebuilt every frame. Pure computation, no OpenGL.
/// Owned by whoever draws, for the life of the program: its memory, two entries a particle, is kept.
/// Threads: GUI thread; keys and large sorts fan out to four threads, and all calls return when they are
/// done. Units: keys are squared data lengths or data lengths. Failure: an unknown sort order gives an empty
/// order. Positions that are not finite keep their place in the array; their keys come first or last.
class DrawOrder_cls {
  public:
    /// Where the particles are seen from.
    struct View {
        std::array<double, 3> mCamera{};
        std::array<double, 3> mDirection{};
        bool mIsOrthographic = false;  ///< the view's projection flag
        float mUnit = 1.0F;            ///< DrawView_cls::unit
    };
    /// Moves the entries that are to be drawn to the front and returns their number.
    using RegionCheck = std::function<size_t(std::span<ArrayAndIndex_cls>)>;

    /// Which entries the boolean regions leave; none means all. Solid order (2) is not checked: its pictures
    /// have always shown every particle.
    void SetRegionCheck(RegionCheck check) { mRegionCheck = std::move(check); }

    /// The entries of particles 0, step, 2 step, ... below `count`, in the order of
    /// DrawOption_cls::SortOrder. Transparent order holds count / step of them, the other orders every one.
    /// The entries stay valid until the next call. A step below 1 counts as 1.
    std::span<ArrayAndIndex_cls> ZSortAtFBO0(int count, int step, const float* positions,
                                             unsigned int sortOrder, const View& view);

  private:
    size_t FillUnsorted(int count, int step);
    size_t CheckRegions(size_t entries) const;

    EntryArray_cls mEntries;
    ZSort_cls mZSort;
    RegionCheck mRegionCheck;
};
