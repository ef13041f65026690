#include "render/clsMergeRuns.h"

#include <algorithm>

MergeRuns_cls MergeRuns_cls::Split(bool isFront) const {
    const size_t total = mFirst.size();
    // Entries of the first run in front, the rest of `total` being of the second: by halving.
    size_t low = total - std::min(total, mSecond.size());
    size_t high = total;
    while (low < high) {
        const size_t middle = low + (high - low) / 2;
        if (IsSecondNext(mFirst[middle], mSecond[total - middle - 1])) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    const size_t second = total - low;
    if (isFront) return {mFirst.first(low), mSecond.first(second), mOut};
    return {mFirst.subspan(low), mSecond.subspan(second), mOut + total};
}
