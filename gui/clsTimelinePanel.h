#pragma once

#include <wx/panel.h>

#include <vector>

#include "gui/clsTimelineModel.h"
#include "gui/clsTimelinePlayBar.h"

class TimelineCanvas_cls;
struct ParamHost_cls;

/// The bottom half of the main window: play controls, ruler, and a lane of keys for each parameter group.
/// It observes the undo list and shows by itself what a step has changed. Changes that no step follows (a
/// project was read, playback moved on) are shown by RefreshFromModel().
/// Owned by its parent window; the timeline and the trees of groups outlive it. Trees may come and go, and
/// groups in them, while no event is handled. Threads: GUI thread.
class TimelinePanel_cls : public wxPanel {
  public:
    TimelinePanel_cls(wxWindow* parent, TimeCtrl_cls& timeCtrl, const std::vector<ParamGroup_cls*>& groups);
    ~TimelinePanel_cls() override;

    void SetPlayActions(PlayActions_cls actions) { mPlayBar->SetPlayActions(std::move(actions)); }
    void TogglePlay() { mPlayBar->TogglePlay(); }
    /// Shows the timeline and the groups as they are now.
    void RefreshFromModel();
    /// Gives groups the clipboard and the dialog of their keys while the panel lives. The host outlives it.
    void ServeGroups(ParamHost_cls& host);

  private:
    void AddSwitches();

    TimelineModel_cls mModel;
    TimelinePlayBar_cls* mPlayBar;
    TimelineCanvas_cls* mCanvas;
    ParamHost_cls* mServed = nullptr;
    int mObserver = 0;
};
