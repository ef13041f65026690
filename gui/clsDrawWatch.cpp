#include "gui/clsDrawWatch.h"

#include <algorithm>

#include "gui/clsWaitingEvents.h"
#include "gui/clsWindowClock.h"
#include "render/clsGLDrawData.h"

namespace {

/// Progress of shorter drawings would only flicker.
constexpr long long kFlickerMs = 400;
constexpr int kAllPercent = 100;
/// Less says little about the rest.
constexpr int kLeastPercent = 5;

int DrawnPercentage() {
    return GLDrawData_cls::msPercentage.load(std::memory_order_relaxed);
}

}  // namespace

bool DrawWatch_cls::Run(int coarseness, const std::function<void()>& draw, long long patienceMs) {
    mNextCoarseness = coarseness;
    mBegin = mClock.Now();
    mPatienceMs = coarseness > 1 ? kEndless : patienceMs;
    mRunning = true;
    mInterrupted = false;
    GLDrawData_cls::msPercentage.store(0, std::memory_order_relaxed);
    GLDrawData_cls::msStatusObserver = [this] { mClock.Breathe(); };
    {
        const WindowClock_cls::Breath breath(mClock, [this] { Look(); });
        draw();
    }
    GLDrawData_cls::msStatusObserver = nullptr;
    mRunning = false;
    if (mInterrupted) return false;
    const bool othersShown = coarseness != mCoarseness;
    mCoarseness = coarseness;
    if (coarseness == 1) {
        mFullMs = mClock.Now() - mBegin;
        if (mPercentage) {
            Stop();
            return true;
        }
    }
    if (othersShown) mShowProgress();
    return true;
}

void DrawWatch_cls::Interrupt() {
    if (!mInterrupted && mNextCoarseness == 1)
        mFullMs = (mClock.Now() - mBegin) * kAllPercent / std::max(DrawnPercentage(), kLeastPercent);
    mInterrupted = true;
    mHurried = true;
    GLDrawData_cls::msAbort.store(true, std::memory_order_relaxed);
}

void DrawWatch_cls::Stop() {
    mPercentage.reset();
    mHurried = false;
    mShowProgress();
}

void DrawWatch_cls::Look() {
    const long long passed = mClock.Now() - mBegin;
    // A picture of several parts has several draws, each to be ended.
    // What has been handed over to the driver can only be waited for.
    const bool mayEnd = passed >= mPatienceMs && DrawnPercentage() < kAllPercent;
    if (mInterrupted || (mayEnd && WaitingEvents::HasInput())) {
        Interrupt();
        return;
    }
    WaitingEvents::AnswerPings();
    // A coarse picture is none that anybody waits for.
    if (mNextCoarseness > 1 || (!mPercentage && passed < kFlickerMs)) return;
    mPercentage = DrawnPercentage();
    mShowProgress();
}
