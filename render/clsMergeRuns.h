#pragma once

#include <algorithm>
#include <span>
#include <utility>

#include "render/clsArrayAndIndex.h"

/// Two sorted runs and where they are merged to. Of equal keys the second run's come first.
struct MergeRuns_cls {
    std::span<const ArrayAndIndex_cls> mFirst;
    std::span<const ArrayAndIndex_cls> mSecond;
    ArrayAndIndex_cls* mOut;

    static bool IsSecondNext(const ArrayAndIndex_cls& first, const ArrayAndIndex_cls& second) {
        return second.mKey <= first.mKey;
    }
    size_t GetSize() const { return mFirst.size() + mSecond.size(); }
    /// What ends up in the first `front` places of the output, and the rest. Each of several mergers thus
    /// knows its own entries: none can take another's, in whatever order they are.
    std::pair<MergeRuns_cls, MergeRuns_cls> Split(size_t front) const;
};

/// Merges both halves of the output at once, each by a cursor of its own: the processor works on one while it
/// waits for the other. A cursor has IsMerging(), Step() and Finish().
template <class Cursor>
void MergeHalves(const MergeRuns_cls& runs) {
    const auto [front, back] = runs.Split(runs.GetSize() / 2);
    Cursor a(front);
    Cursor b(back);
    while (a.IsMerging() && b.IsMerging()) {
        a.Step();
        b.Step();
    }
    a.Finish();
    b.Finish();
}
