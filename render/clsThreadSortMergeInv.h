#pragma once

#include "render/clsMergeRuns.h"
#include "render/clsSortThread.h"

/// Worker that merges two sorted runs from the back, entry by entry.
/// Threads: reads its runs, writes its own output.
class ThreadSortMergeInv_cls final : public SortThread_cls {
  public:
    explicit ThreadSortMergeInv_cls(const MergeRuns_cls& runs) : mRuns(runs) {}

  private:
    void Work() override;

    const MergeRuns_cls mRuns;
};
