#include "render/clsMergeRuns.h"

std::pair<MergeRuns_cls, MergeRuns_cls> MergeRuns_cls::Split(size_t front) const {
    // How many of them are of the first run: by halving.
    size_t low = front - std::min(front, mSecond.size());
    size_t high = std::min(front, mFirst.size());
    while (low < high) {
        const size_t middle = low + (high - low) / 2;
        if (IsSecondNext(mFirst[middle], mSecond[front - middle - 1])) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    const size_t second = front - low;
    return {{mFirst.first(low), mSecond.first(second), mOut},
            {mFirst.subspan(low), mSecond.subspan(second), mOut + front}};
}
