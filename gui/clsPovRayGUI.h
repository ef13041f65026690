#pragma once

#include <wx/panel.h>
#include <wx/timer.h>

#include <functional>
#include <vector>

#include "gui/clsSettingsView.h"
#include "pov/clsPovRayCtrl.h"

class SettingsPage_cls;
class TimeCtrl_cls;
class wxButton;
class wxGauge;
class wxStaticText;
struct FrameContext_cls;

/// The POV-Ray dialog: pages of settings, and below them what starts and ends renders and shows how far they
/// are. Renders go on while the dialog is closed, and end with the main window.
/// Owned by its parent window; the controllers outlive it. Threads: GUI thread.
/// Failure: what went wrong is told in the status line, and the frames behind it go on.
class PovRayGUI_cls : public wxPanel, public SettingsView_cls {
  public:
    static constexpr const char* kTitle = "POV-Ray";

    /// `hasLight` asks the user where no light shines; `mayPrepare` is false while others wait for data.
    PovRayGUI_cls(wxWindow* parent, PovRayCtrl_cls& control, const TimeCtrl_cls& timeline,
                  std::function<bool()> hasLight, std::function<bool()> mayPrepare);
    ~PovRayGUI_cls() override;

    void ShowSettings(std::uint64_t updateBits) override;

  private:
    void MakeButtons();
    bool MayStart();
    void ExportFrame();
    void RenderFrame();
    void RenderAnimation();
    void Abort();
    void Proceed();
    /// Scenes are written in the time that the window does not need.
    void OnIdle(wxIdleEvent& event);
    void OnReturned(wxCommandEvent& event);
    void OnOutcome(const PovRenderPool_cls::Outcome& outcome);
    void UpdateButtonLabels();
    void Say(const wxString& text);
    /// How many frames are done, the share of the next one and what is done to it, and what came of the last.
    void ShowProgress(double share, const wxString& work = {});

    PovRayCtrl_cls& mControl;
    const TimeCtrl_cls& mTimeline;
    const std::function<bool()> mHasLight;
    const std::function<bool()> mMayPrepare;
    std::vector<SettingsPage_cls*> mPages;
    wxButton* mExport = nullptr;
    wxButton* mRenderFrame = nullptr;
    wxButton* mRenderAnimation = nullptr;
    wxGauge* mGauge = nullptr;
    wxStaticText* mStatus = nullptr;
    wxWindow* mFrame;
    wxTimer mTimer;
    wxString mLast;  ///< the last picture, or what went wrong with it
    int mFailed = 0;
    bool mProceeding = false;
};

/// Opens the dialog, or shows it again.
void OpenPovRay(wxWindow* parent, FrameContext_cls& context);
