#pragma once

#include <wx/panel.h>

#include <functional>
#include <vector>

#include "timeline/clsTimeCtrl.h"

class wxBitmapButton;
class wxSpinCtrl;
class wxStaticText;
class wxToggleButton;

/// How the timeline starts and stops playing. The main window fills it, since playback is driven by its idle
/// time; without, the timeline's clock is only told.
struct PlayActions_cls {
    std::function<void(int increment)> start;
    std::function<void()> stop;
};

/// The row of controls above the ruler: where playback is, how it moves on, and how fast it was.
/// Every change of a setting is one step of the undo list. Owned by the timeline panel. Threads: GUI thread.
class TimelinePlayBar_cls : public wxPanel {
  public:
    TimelinePlayBar_cls(wxWindow* parent, TimeCtrl_cls& timeCtrl);

    void SetPlayActions(PlayActions_cls actions) { mActions = std::move(actions); }
    void TogglePlay();
    /// Adds a switch at the right end of the bar. `isOn` is asked at every refresh.
    void AddSwitch(const wxString& icon, const wxString& tip, std::function<bool()> isOn,
                   std::function<void(bool)> set);
    /// Shows what the timeline holds; controls that show it already are left alone.
    void RefreshFromModel();

  protected:
    wxSize DoGetBestClientSize() const override;

  private:
    struct Switch {
        wxToggleButton* button;
        std::function<bool()> isOn;
    };

    wxBitmapButton* AddButton(const wxString& icon, const wxString& tip, std::function<void()> action);
    wxSpinCtrl* AddNumber(const wxString& label, const wxString& tip, TimeValue which, int lowest,
                          int highest);
    wxStaticText* AddText(const wxString& widest, const wxString& tip);
    wxStaticText* AddLabel(const wxString& label);
    void AddSpace(int pixels);
    void GoToFrame(int frame);
    /// Leaves out what the width has no room for, the least needed first.
    void FitToWidth();
    void ShowRate();

    TimeCtrl_cls& mTimeCtrl;
    PlayActions_cls mActions;

    wxBitmapButton* mPlay = nullptr;
    wxSpinCtrl* mFrame = nullptr;
    wxSpinCtrl* mAnimStep = nullptr;
    wxSpinCtrl* mAnimInterp = nullptr;
    wxStaticText* mMaxFrame = nullptr;
    wxStaticText* mSnapshot = nullptr;
    wxStaticText* mRate = nullptr;
    std::vector<Switch> mSwitches;
    std::vector<std::vector<wxWindow*>> mOptional;  ///< what may be left out, the least needed first
    bool mShowsPlaying = false;

    // Frames shown since a moment, from which the rate follows
    long long mRateSince = 0;
    int mRateFrames = 0;
    FramePlace mRatePlace;
};
