#include "render/clsThreadSortMergeInv.h"

#include <algorithm>

void ThreadSortMergeInv_cls::Work() {
    const ArrayAndIndex_cls* const first = mRuns.mFirst.data();
    const ArrayAndIndex_cls* const second = mRuns.mSecond.data();
    const ArrayAndIndex_cls* firstEnd = first + mRuns.mFirst.size();
    const ArrayAndIndex_cls* secondEnd = second + mRuns.mSecond.size();
    ArrayAndIndex_cls* out = mRuns.mOut + mRuns.mFirst.size() + mRuns.mSecond.size();
    while (first != firstEnd && second != secondEnd) {
        // What is next from the front goes last from the back: of equal keys the first run's.
        const bool isFirst = MergeRuns_cls::IsSecondNext(firstEnd[-1], secondEnd[-1]);
        *--out = (isFirst ? firstEnd : secondEnd)[-1];
        firstEnd -= isFirst ? 1 : 0;
        secondEnd -= isFirst ? 0 : 1;
    }
    std::copy_backward(first, firstEnd, std::copy_backward(second, secondEnd, out));
}
