#include "render/clsThreadSortMergeOrd.h"

#include <algorithm>
#include <iterator>

void ThreadSortMergeOrd_cls::Work() {
    const ArrayAndIndex_cls* first = mRuns.mFirst.data();
    const ArrayAndIndex_cls* second = mRuns.mSecond.data();
    const ArrayAndIndex_cls* const firstEnd = first + mRuns.mFirst.size();
    const ArrayAndIndex_cls* const secondEnd = second + mRuns.mSecond.size();
    ArrayAndIndex_cls* out = mRuns.mOut;
    const auto step = static_cast<std::ptrdiff_t>(mStep);
    while (first != firstEnd && second != secondEnd) {
        const bool isSecond = MergeRuns_cls::IsSecondNext(*first, *second);
        if (step > 1 && firstEnd - first > step && secondEnd - second > step) {
            const ArrayAndIndex_cls*& next = isSecond ? second : first;
            const ArrayAndIndex_cls* other = isSecond ? first : second;
            if (next[step - 1].mKey <= other[step].mKey) {
                out = std::copy_n(next, step, out);
                next += step;
                continue;
            }
        }
        *out++ = *(isSecond ? second : first);
        second += isSecond ? 1 : 0;
        first += isSecond ? 0 : 1;
    }
    std::copy(second, secondEnd, std::copy(first, firstEnd, out));
}
