#include "gui/clsWindowClock.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/thread.h>

namespace {
constexpr long long kBreathMs = 25;
}

WindowClock_cls::WindowClock_cls() {
    GpCClock.store(this, std::memory_order_release);
}

WindowClock_cls::~WindowClock_cls() {
    GpCClock.store(nullptr, std::memory_order_release);
}

void WindowClock_cls::Sleep(int milliseconds) {
    Clock_cls::Sleep(milliseconds);
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
