#pragma once

#include <wx/event.h>

#include <array>
#include <atomic>

#include "seam/clsEventSink.h"

/// Takes posted events for the main window. Repeats of one that still waits to be handled are merged, so that
/// a fast worker cannot flood the window. Owned by the window, which is told by menu-command events of the
/// same identifiers. Threads: Post() any, the rest the GUI thread.
class FrameSink_cls : public EventSink_cls {
  public:
    explicit FrameSink_cls(wxEvtHandler& window);
    ~FrameSink_cls() override;
    FrameSink_cls(const FrameSink_cls&) = delete;
    FrameSink_cls& operator=(const FrameSink_cls&) = delete;

    void Post(int identifier) override;
    /// The event is about to be handled: what is posted from now on comes again. True when the GUI thread was
    /// among those who asked; workers only tell that they are done.
    bool Taken(int identifier);

  private:
    static constexpr std::array<int, 4> kEvents = {kRefreshPanels, kRedraw, kRefreshStatus,
                                                   kRendererReturned};
    static int IndexOf(int identifier);

    wxEvtHandler& mWindow;
    std::array<std::atomic<bool>, kEvents.size()> mWaiting{};
    std::array<std::atomic<bool>, kEvents.size()> mFromWindow{};
};
