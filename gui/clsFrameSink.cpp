#include "gui/clsFrameSink.h"

#include <wx/thread.h>

#include <algorithm>

FrameSink_cls::FrameSink_cls(wxEvtHandler& window) : mWindow(window) {
    GpCEventSink.store(this, std::memory_order_release);
}

FrameSink_cls::~FrameSink_cls() {
    GpCEventSink.store(nullptr, std::memory_order_release);
}

int FrameSink_cls::IndexOf(int identifier) {
    const auto found = std::find(kEvents.begin(), kEvents.end(), identifier);
    return found == kEvents.end() ? -1 : static_cast<int>(found - kEvents.begin());
}

void FrameSink_cls::Post(int identifier) {
    if (const int index = IndexOf(identifier); index >= 0) {
        const auto i = static_cast<size_t>(index);
        if (wxThread::IsMain()) mFromWindow[i].store(true, std::memory_order_release);
        if (mWaiting[i].exchange(true, std::memory_order_acq_rel)) return;
    }
    // The event loop owns queued events.
    wxQueueEvent(&mWindow, new wxCommandEvent(wxEVT_MENU, identifier));
}

bool FrameSink_cls::Taken(int identifier) {
    const int index = IndexOf(identifier);
    if (index < 0) return true;
    const auto i = static_cast<size_t>(index);
    mWaiting[i].store(false, std::memory_order_release);
    return mFromWindow[i].exchange(false, std::memory_order_acq_rel);
}
