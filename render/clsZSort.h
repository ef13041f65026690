#pragma once

#include <array>

#include "render/clsEntryArray.h"
#include "render/clsMergeRuns.h"
#include "render/clsThreadSortPrepare.h"

class Preference_cls;

/// Keys and depth sort of draw-order entries.
/// Owned by DrawOrder_cls. Scratch memory is kept between sorts.
/// Threads: one caller; the work is shared out to four threads, the caller being one of them, and every call
/// returns when all are done.
/// The same entries give the same order every time, so that nothing flickers in a film.
/// Failure: std::bad_alloc; a thread that cannot be created ends the program with a message. A key that is
/// not a number counts as infinity: no entry is ever lost or doubled.
class ZSort_cls {
  public:
    using Mode = ThreadSortPrepare_cls::Mode;
    /// More entries than this are sorted by four threads.
    static constexpr size_t kLargestSingle = 100000;

    /// The sort precision. Set by the application core; without it sorts are precise.
    static const Preference_cls* mspCPreferenceLink;

    /// Entries of the particles 0, step, 2 step, ... with their keys and an alpha multiplier of 1; returns
    /// their number, count / step: a last particle beyond a multiple of the step is left out. The unit is
    /// DrawView_cls::unit.
    static size_t ZSortPrepare(ArrayAndIndex_cls* entries, long long count, int step, const float* positions,
                               const std::array<double, 3>& camera, const std::array<double, 3>& direction,
                               Mode mode, float unit = 1.0F);

    /// Sorts the first `count` entries ascending by key, on this thread or by four. The array may change its
    /// memory for that of the scratch.
    void Sort(EntryArray_cls& entries, size_t count);
    /// By four threads: quarters, pairs of quarters, the two halves. Of entries with equal keys those of a
    /// later quarter come first; inside a quarter they keep their order.
    /// "Precise" is exact. "Approximate N" leaves every entry at most N places from the exact places of its
    /// key.
    void ZSortParallel(EntryArray_cls& entries, size_t count);

  private:
    EntryArray_cls mScratch;
};
