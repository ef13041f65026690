#include "gui/clsFrameSink.h"

#include <algorithm>

FrameSink_cls::FrameSink_cls(wxEvtHandler& window) : mWindow(window) {
    GpCEventSink.store(this, std::memory_order_release);
}

FrameSink_cls::~FrameSink_cls() {
    GpCEventSink.store(nullptr, std::memory_order_release);
}

std::atomic<bool>* FrameSink_cls::FindFlag(int identifier) {
    const auto found = std::find(kEvents.begin(), kEvents.end(), identifier);
    return found == kEvents.end() ? nullptr : &mWaiting[static_cast<size_t>(found - kEvents.begin())];
}

void FrameSink_cls::Post(int identifier) {
    std::atomic<bool>* waiting = FindFlag(identifier);
    if (waiting && waiting->exchange(true, std::memory_order_acq_rel)) return;
    // The event loop owns queued events.
    wxQueueEvent(&mWindow, new wxCommandEvent(wxEVT_MENU, identifier));
}

void FrameSink_cls::Taken(int identifier) {
    if (std::atomic<bool>* waiting = FindFlag(identifier)) waiting->store(false, std::memory_order_release);
}
