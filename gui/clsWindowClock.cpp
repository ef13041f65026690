#include "gui/clsWindowClock.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/thread.h>
#include <wx/utils.h>

#include <chrono>

namespace {
constexpr long long kBreathMs = 25;
}

WindowClock_cls::WindowClock_cls() {
    GpCClock.store(this, std::memory_order_release);
}

WindowClock_cls::~WindowClock_cls() {
    GpCClock.store(nullptr, std::memory_order_release);
}

long long WindowClock_cls::Now() {
    using std::chrono::duration_cast, std::chrono::milliseconds, std::chrono::steady_clock;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void WindowClock_cls::Sleep(int milliseconds) {
    wxMilliSleep(static_cast<unsigned long>(milliseconds));
    if (!wxThread::IsMain() || mDepth > 0) return;
    if (mBreath) {
        Breathe();
        return;
    }
    // Painting only: what the user does meanwhile comes when the wait is over, in its order.
    if (wxEventLoopBase* loop = wxEventLoopBase::GetActive(); loop && !loop->IsYielding()) {
        ++mDepth;
        loop->YieldFor(wxEVT_CATEGORY_UI);
        --mDepth;
    }
}

void WindowClock_cls::Breathe() {
    if (!wxThread::IsMain() || !mBreath || Now() - mBreathedAt < kBreathMs) return;
    mBreath();
    mBreathedAt = Now();
}
