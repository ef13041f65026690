#pragma once

#include <wx/frame.h>

#include <cstdint>

#include "gui/clsDrawWatch.h"
#include "gui/clsFrameContext.h"
#include "gui/clsFrameFiles.h"
#include "gui/clsFrameMenu.h"
#include "gui/clsFrameSink.h"
#include "gui/clsModalDialogs.h"
#include "gui/clsPlayback.h"
#include "gui/clsShownInstant.h"
#include "gui/clsUserSettings.h"
#include "gui/clsWindowClock.h"
#include "gui/clsWindowMessage.h"

class FaultBar_cls;
class FrameStatus_cls;
class TimelinePanel_cls;
class TopHalfPanel_cls;
class wxNotebook;
class wxSplitterWindow;

/// The main window: view panels and a notebook of settings above, the timeline below, menus and status bar.
/// It ties its parts together; each has its own class.
/// Owned by the toolkit; lives inside the life of what its context names. Threads: GUI thread.
class FrameMain_cls : public wxFrame {
  public:
    explicit FrameMain_cls(FrameContext_cls& context);
    ~FrameMain_cls() override;

    /// Shows the window and waits until it has its place on the screen: what opening files tells and asks
    /// comes up over it.
    void ShowAndWait();
    FrameFiles_cls& GetFiles() { return mFiles; }
    Playback_cls& GetPlayback() { return mPlayback; }
    TopHalfPanel_cls& GetViews() { return *mViews; }
    /// Closes without questions, as the program is told to end: unsaved work is offered at the next start.
    void End();
    /// Settings may have been changed past the undo list: everything is shown anew.
    void RefreshAll();

  private:
    void MakeParts();
    void MakeMenus();
    std::vector<FrameMenu_cls::Entry> FileEntries();
    std::vector<FrameMenu_cls::Entry> EditEntries();
    std::vector<FrameMenu_cls::Entry> ViewEntries();
    std::vector<FrameMenu_cls::Entry> DataEntries();
    std::vector<FrameMenu_cls::Entry> AnimationEntries();
    std::vector<FrameMenu_cls::Entry> RenderEntries();
    void PlaceWindow();
    /// What the pages of settings need.
    int PagesWidth() const;
    /// Data that nobody has set up yet get a look that shows something.
    void SuggestFirstLook(const SnapData_cls& state);
    void TogglePlay();
    /// Reading and drawing that somebody waits for.
    void StopWaiting();
    void GoToFrame(int frame);
    void Undo();
    void Redo();
    void RemoveCache(bool all);

    void OnPosted(wxCommandEvent& event);
    void OnUpdate(std::uint64_t updateBits);
    void OnClose(wxCloseEvent& event);
    /// Tells every settings view among the windows.
    void ShowSettings(std::uint64_t updateBits);
    void ShowTitle();

    FrameContext_cls& mContext;
    WindowClock_cls mClock;
    DrawWatch_cls mWatch;
    FrameSink_cls mSink;
    WindowMessage_cls mMessage;
    UserSettings_cls mUser;
    FrameFiles_cls mFiles;
    ShownInstant_cls mInstant;
    Playback_cls mPlayback;
    FrameMenu_cls mMenu;
    ModalDialogs_cls mDialogs;
    int mObserver;
    bool mEnding = false;
    wxTimer mEndTimer;

    FaultBar_cls* mFaults = nullptr;
    wxSplitterWindow* mHalves = nullptr;
    wxSplitterWindow* mTop = nullptr;
    TopHalfPanel_cls* mViews = nullptr;
    TimelinePanel_cls* mTimeline = nullptr;
    wxNotebook* mPages = nullptr;
    FrameStatus_cls* mStatus = nullptr;
};
