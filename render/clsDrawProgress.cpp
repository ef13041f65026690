#include "render/clsDrawProgress.h"

#include <algorithm>

#include "render/clsGLDrawData.h"
#include "seam/clsClock.h"

namespace {
constexpr long long kRefreshMs = 30;
}

DrawProgress_cls::DrawProgress_cls(size_t count)
    : mCount(std::max<size_t>(count, 1)), mLastRefresh(Clock_cls::Current().Now()) {}

bool DrawProgress_cls::Step(size_t done) {
    const long long now = Clock_cls::Current().Now();
    if (now - mLastRefresh >= kRefreshMs) {
        mLastRefresh = now;
        GLDrawData_cls::msPercentage.store(static_cast<int>(100 * done / mCount), std::memory_order_relaxed);
        if (GLDrawData_cls::msStatusObserver) GLDrawData_cls::msStatusObserver();
    }
    return !GLDrawData_cls::msAbort.exchange(false, std::memory_order_relaxed);
}
