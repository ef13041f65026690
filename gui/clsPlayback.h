#pragma once

#include <wx/event.h>
#include <wx/timer.h>

#include <functional>
#include <optional>
#include <vector>

#include "gui/clsFrameContext.h"

class ShownInstant_cls;
class WindowClock_cls;

/// What runs by itself while the window is idle: playback at its rate, reading what the shown instant needs
/// and what comes next, and trimming the memory. Never waits: what is not ready is started, and looked at
/// again when an event says that it is done or the time has come.
/// Owned by the main window. Threads: GUI thread.
class Playback_cls : public wxEvtHandler {
  public:
    struct Views {
        std::function<bool()> isShowing;  ///< every view that can be seen shows the current instant
        std::function<void()> redraw;
        /// What is wrong with files that are shown now.
        std::function<void(const std::vector<wxString>& lines)> tellFaults;
    };

    Playback_cls(FrameContext_cls& context, ShownInstant_cls& instant, const WindowClock_cls& clock,
                 Views views);

    /// A step of the undo list that does not ask for saving and whose undo goes back to where playback began;
    /// none while something can be redone. The increment's sign is the direction. Without data nothing plays.
    void Start(int increment);
    void Stop();
    /// Gives up what is being read for the shown instant, and playing; the last picture stays. Reading goes
    /// on when another instant is shown or ReadOn() says so.
    void StopReading();
    void ReadOn() { mStoppedAt.reset(); }
    bool IsReadingStopped() const { return mStoppedAt.has_value(); }
    /// The shown instant's data let the user wait.
    bool IsSlow() const;
    /// One round; the window calls it when idle and after events that may have changed what is to be done.
    void Work();

  private:
    void WorkOnData();
    void WorkOnTime();
    void TellFaults(int snapshot);
    bool HasData() const;
    bool HasShown() const;

    FrameContext_cls& mContext;
    ShownInstant_cls& mInstant;
    const WindowClock_cls& mClock;
    const Views mViews;
    wxTimer mTimer;
    bool mWorking = false;
    bool mWasReady = true;
    long long mSteppedAt = 0;
    std::optional<long long> mAwaitedSince;  ///< the shown instant is not ready since then
    std::optional<double> mStoppedAt;        ///< the data position that shall not be read
};
