#pragma once

#include "render/clsMergeRuns.h"
#include "render/clsSortThread.h"

/// Worker that merges two sorted runs from the front.
/// With a step above 1 it moves as many entries of a run at once where they pass by at most that many of the
/// other run: each then stands at most a step from its exact place.
/// Threads: reads its runs, writes its own output.
class ThreadSortMergeOrd_cls final : public SortThread_cls {
  public:
    ThreadSortMergeOrd_cls(const MergeRuns_cls& runs, int step) : mRuns(runs), mStep(step) {}

  private:
    void Work() override;

    const MergeRuns_cls mRuns;
    const int mStep;
};
