#pragma once

#include <cstddef>

#include "render/clsArrayAndIndex.h"
#include "render/clsSortThread.h"

/// Worker that sorts one quarter of the entries ascending by key; equal keys keep their order.
/// The keys' range is cut into equal pieces. Entries are first scattered to their pieces, which fit into the
/// processor's cache, and each piece is then sorted there by the bits in which its keys differ. Where keys
/// are crowded in one piece this is a plain radix sort. Threads: writes its own quarter of both arrays.
class ThreadSortParallel_cls final : public SortThread_cls {
  public:
    ThreadSortParallel_cls(ArrayAndIndex_cls* entries, ArrayAndIndex_cls* scratch, size_t count)
        : mEntries(entries), mScratch(scratch), mCount(count) {}

    /// Sorts `count` entries on the caller's thread, from one array into the other. What `entries` held is
    /// lost. A key that is not a number becomes infinity.
    static void SortInto(ArrayAndIndex_cls* entries, ArrayAndIndex_cls* sorted, size_t count);

  private:
    void Work() override { SortInto(mEntries, mScratch, mCount); }

    ArrayAndIndex_cls* const mEntries;
    ArrayAndIndex_cls* const mScratch;
    const size_t mCount;
};
