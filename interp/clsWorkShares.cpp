#include "interp/clsWorkShares.h"

#include <algorithm>

WorkShares_cls::WorkShares_cls(int count, int workers, int block) : mShares(static_cast<size_t>(workers)) {
    const int each = count / workers;
    int begin = 0;
    for (Share& share : mShares) {
        share.next = begin;
        share.end = &share == &mShares.back() ? count : begin + each;
        share.block = block == kWhole ? std::max(share.end - begin, 1) : block;
        begin = share.end;
    }
}

bool WorkShares_cls::Take(int worker, int* begin, int* end) {
    const auto own = static_cast<size_t>(worker);
    for (size_t k = 0; k < mShares.size(); ++k) {
        Share& share = mShares[(own + k) % mShares.size()];
        const long long next = share.next.fetch_add(share.block, std::memory_order_relaxed);
        if (next >= share.end) continue;
        *begin = static_cast<int>(next);
        *end = static_cast<int>(std::min<long long>(next + share.block, share.end));
        return true;
    }
    return false;
}
