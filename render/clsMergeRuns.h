#pragma once

#include <span>

#include "render/clsArrayAndIndex.h"

/// Two sorted runs and where they are merged to. Of equal keys the second run's come first.
struct MergeRuns_cls {
    std::span<const ArrayAndIndex_cls> mFirst;
    std::span<const ArrayAndIndex_cls> mSecond;
    ArrayAndIndex_cls* mOut;

    static bool IsSecondNext(const ArrayAndIndex_cls& first, const ArrayAndIndex_cls& second) {
        return second.mKey <= first.mKey;
    }
    /// The part of the runs that ends up in the first mFirst.size() places of the output, and the rest.
    /// Both mergers thus know their own entries: no wrong order can make one of them take the other's.
    MergeRuns_cls GetFront() const { return Split(true); }
    MergeRuns_cls GetBack() const { return Split(false); }

  private:
    MergeRuns_cls Split(bool isFront) const;
};
