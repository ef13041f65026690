#pragma once

#include <atomic>

/// Takes the menu-command events that workers and commands post to the main window. A program without a
/// window has none, and posting then does nothing. Threads: Post() may be called from any thread and only
/// queues.
class EventSink_cls {
  public:
    /// Identifiers of posted events.
    enum Event : int {
        kRefreshPanels = 6017,  ///< data were opened or closed: panels and titles
        kRedraw = 6018,         ///< after reading, interpolation, or a change of what is drawn
        kRefreshStatus = 6019,  ///< progress shown in the status bar
        kRendererReturned = 6085
    };

    virtual ~EventSink_cls() = default;
    virtual void Post(int identifier) = 0;

    /// Posts to the front end's sink if there is one.
    static void PostToFrame(int identifier);
};

/// The front end's sink, owned by it; null when there is no window.
extern std::atomic<EventSink_cls*> GpCEventSink;
