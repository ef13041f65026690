#include "render/clsZSort.h"

#include "data/clsPreference.h"
#include "render/clsThreadSortMergeInv.h"
#include "render/clsThreadSortMergeOrd.h"
#include "render/clsThreadSortParallel.h"

const Preference_cls* ZSort_cls::mspCPreferenceLink = nullptr;

namespace {

std::array<float, 3> ToFloat(const std::array<double, 3>& v) {
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

}  // namespace

size_t ZSort_cls::ZSortPrepare(ArrayAndIndex_cls* entries, long long count, int step, const float* positions,
                               const std::array<double, 3>& camera, const std::array<double, 3>& direction,
                               Mode mode, float unit) {
    const auto quarter = [&](int k) {
        const auto bound = [&](long long at) { return at * count / 4 / step * step; };
        return ThreadSortPrepare_cls({.entries = entries,
                                      .positions = positions,
                                      .begin = bound(k),
                                      .end = bound(k + 1),
                                      .step = step,
                                      .camera = ToFloat(camera),
                                      .direction = ToFloat(direction),
                                      .mode = mode,
                                      .unit = unit});
    };
    ThreadSortPrepare_cls a = quarter(0);
    ThreadSortPrepare_cls b = quarter(1);
    ThreadSortPrepare_cls c = quarter(2);
    ThreadSortPrepare_cls d = quarter(3);
    SortThread_cls::RunAll({&a, &b, &c, &d});
    return static_cast<size_t>(count / step);
}

void ZSort_cls::Sort(EntryArray_cls& entries, size_t count) {
    if (count > kLargestSingle) return ZSortParallel(entries, count);
    ThreadSortParallel_cls::SortInto(entries.Get(), mScratch.Reserve(count), count);
    entries.Swap(mScratch);
}

void ZSort_cls::ZSortParallel(EntryArray_cls& entries, size_t count) {
    const int step = mspCPreferenceLink ? mspCPreferenceLink->GetMergeStep() : 1;
    ArrayAndIndex_cls* const array = entries.Get();
    ArrayAndIndex_cls* const scratch = mScratch.Reserve(count);
    const std::array<size_t, 5> bounds = {0, count / 4, count / 2, 3 * count / 4, count};
    const auto sorter = [&](size_t k) {
        return ThreadSortParallel_cls(array + bounds[k], scratch + bounds[k], bounds[k + 1] - bounds[k]);
    };
    const auto run = [&bounds](const ArrayAndIndex_cls* from, size_t begin, size_t end) {
        return std::span(from + bounds[begin], bounds[end] - bounds[begin]);
    };
    {
        ThreadSortParallel_cls a = sorter(0), b = sorter(1), c = sorter(2), d = sorter(3);
        SortThread_cls::RunAll({&a, &b, &c, &d});
    }
    {
        const MergeRuns_cls lower{run(scratch, 0, 1), run(scratch, 1, 2), array};
        const MergeRuns_cls upper{run(scratch, 2, 3), run(scratch, 3, 4), array + bounds[2]};
        // Exact in any case: blocks of runs that are out of order already would end up anywhere.
        const auto [lowerFront, lowerBack] = lower.Split(lower.mFirst.size());
        const auto [upperFront, upperBack] = upper.Split(upper.mFirst.size());
        ThreadSortMergeOrd_cls a(lowerFront, 1), c(upperFront, 1);
        ThreadSortMergeInv_cls b(lowerBack), d(upperBack);
        SortThread_cls::RunAll({&a, &b, &c, &d});
    }
    const MergeRuns_cls halves{run(array, 0, 2), run(array, 2, 4), scratch};
    const auto [front, back] = halves.Split(halves.mFirst.size());
    ThreadSortMergeOrd_cls a(front, step);
    ThreadSortMergeInv_cls b(back);
    SortThread_cls::RunAll({&a, &b});
    entries.Swap(mScratch);
}
