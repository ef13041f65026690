#include "gui/clsPovRayGUI.h"

#include <wx/button.h>
#include <wx/event.h>
#include <wx/gauge.h>
#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <utility>

#include "gui/clsFrameContext.h"
#include "gui/clsPovRayPages.h"
#include "gui/clsSettingsDialog.h"
#include "gui/clsSettingsPage.h"
#include "gui/clsShownInstant.h"
#include "gui/clsSpacing.h"
#include "seam/clsEventSink.h"
#include "timeline/clsTimeCtrl.h"

namespace {

/// How often renders are looked at, besides the events that they post.
constexpr int kLookPeriodMs = 100;
/// What the writing of a frame counts in its progress.
constexpr double kWritingShare = 0.5;
constexpr const char* kRenderTip = wxTRANSLATE("Renders the frames of the region one after another");

}  // namespace

PovRayGUI_cls::PovRayGUI_cls(wxWindow* parent, PovRayCtrl_cls& control, const TimeCtrl_cls& timeline,
                             std::function<bool()> hasLight, std::function<bool()> mayPrepare)
    : wxPanel(parent),
      mControl(control),
      mTimeline(timeline),
      mHasLight(std::move(hasLight)),
      mMayPrepare(std::move(mayPrepare)),
      mFrame(wxGetTopLevelParent(parent->GetParent())),
      mTimer(this) {
    auto* book = new wxNotebook(this, wxID_ANY);
    const auto add = [&](SettingsPage_cls* page, const wxString& title) {
        book->AddPage(page, title);
        mPages.push_back(page);
    };
    add(MakePovPathPage(book, control), _("Files"));
    add(MakePovPicturePage(book, control), _("Picture"));
    add(MakePovLightPage(book, control), _("Light"));
    add(MakePovAnimationPage(book, control), _("Animation"));
    SetSizer(new wxBoxSizer(wxVERTICAL));
    GetSizer()->Add(book, wxSizerFlags(1).Expand());
    MakeButtons();

    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Proceed(); });
    Bind(wxEVT_IDLE, &PovRayGUI_cls::OnIdle, this);
    mFrame->Bind(wxEVT_MENU, &PovRayGUI_cls::OnReturned, this, EventSink_cls::kRendererReturned);
    mControl.SetObserver([this](const PovRenderPool_cls::Outcome& outcome) { OnOutcome(outcome); });
    mControl.SetProgress([this](double share) {
        ShowProgress(kWritingShare * share,
                     wxString::Format(_("writing %d %%"), static_cast<int>(100.0 * share)));
        return true;
    });
    UpdateButtonLabels();
}

PovRayGUI_cls::~PovRayGUI_cls() {
    mControl.SetObserver({});
    mControl.SetProgress({});
    mControl.AbortRenderPovAnim();
    mFrame->Unbind(wxEVT_MENU, &PovRayGUI_cls::OnReturned, this, EventSink_cls::kRendererReturned);
}

void PovRayGUI_cls::MakeButtons() {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](const wxString& name, const wxString& tooltip, void (PovRayGUI_cls::*press)()) {
        auto* button =
            new wxButton(this, wxID_ANY, name, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
        button->SetToolTip(tooltip);
        button->Bind(wxEVT_BUTTON, [this, press](wxCommandEvent&) { (this->*press)(); });
        row->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(Spacing::kRow)));
        return button;
    };
    mExport = add(_("Export Frame"), _("Writes scene and options of the current frame, and renders nothing"),
                  &PovRayGUI_cls::ExportFrame);
    mRenderFrame =
        add(_("Render Frame"), _("Writes and renders the current frame"), &PovRayGUI_cls::RenderFrame);
    mRenderAnimation = add(_("Render Animation"), kRenderTip, &PovRayGUI_cls::RenderAnimation);
    mGauge = new wxGauge(this, wxID_ANY, 1000, wxDefaultPosition, wxDefaultSize, wxGA_HORIZONTAL,
                         wxDefaultValidator, "Progress");
    mStatus = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                               wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_MIDDLE, "Status");
    GetSizer()->Add(row, wxSizerFlags().Border(wxTOP, FromDIP(Spacing::kRow)));
    GetSizer()->Add(mGauge, wxSizerFlags().Expand().Border(wxTOP, FromDIP(Spacing::kRow)));
    GetSizer()->Add(mStatus, wxSizerFlags().Expand().Border(wxTOP, FromDIP(Spacing::kRow)));
}

void PovRayGUI_cls::ShowSettings(std::uint64_t) {
    for (SettingsPage_cls* page : mPages) page->RefreshFromModel();
}

void PovRayGUI_cls::Say(const wxString& text) {
    if (mStatus->GetLabel() == text) return;
    mStatus->SetLabel(text);
    mStatus->SetToolTip(text);
}

bool PovRayGUI_cls::MayStart() {
    if (!mControl.ConfirmPaths() || !mHasLight()) return false;
    const wxString obstacle = mControl.FindObstacle();
    Say(obstacle);
    mGauge->SetValue(0);
    mLast.clear();
    mFailed = 0;
    return obstacle.empty();
}

void PovRayGUI_cls::ExportFrame() {
    if (MayStart()) mControl.StartPovSnap(mTimeline.GetFrame(), false);
}

void PovRayGUI_cls::RenderFrame() {
    if (MayStart()) mControl.StartPovSnap(mTimeline.GetFrame(), true);
}

void PovRayGUI_cls::RenderAnimation() {
    if (mControl.IsRendering()) return Abort();
    if (!MayStart()) return;
    mControl.StartRenderPovAnim(mControl.GetRender().GetFrames(mTimeline.GetSettings()));
}

void PovRayGUI_cls::Abort() {
    const wxString words = wxString::Format(_("Aborted; %d of %d pictures are done"),
                                            mControl.GetDone() - mFailed, mControl.GetTotal());
    mControl.AbortRenderPovAnim();
    Say(words);
}

void PovRayGUI_cls::Proceed() {
    // A message box or a wait of the frame that is begun lets the timer through; and while others wait for
    // data, no frame can be begun.
    if (mProceeding || !mMayPrepare()) return;
    mProceeding = true;
    const bool rendering = mControl.ProcessRenderPovAnim();
    if (rendering && !mControl.IsBusy()) ShowProgress(kWritingShare, _("rendering"));
    mProceeding = false;
}

void PovRayGUI_cls::OnIdle(wxIdleEvent& event) {
    event.Skip();
    if (mProceeding || !mControl.IsBusy() || !mMayPrepare()) return;
    Proceed();
    event.RequestMore();
}

void PovRayGUI_cls::OnReturned(wxCommandEvent& event) {
    event.Skip();
    Proceed();
}

void PovRayGUI_cls::OnOutcome(const PovRenderPool_cls::Outcome& outcome) {
    if (outcome.frame < 0) return UpdateButtonLabels();
    if (!outcome.error.empty()) ++mFailed;
    mLast = outcome.error.empty() ? outcome.picture : outcome.error;
    ShowProgress(0.0);
}

void PovRayGUI_cls::ShowProgress(double share, const wxString& work) {
    const int total = std::max(mControl.GetTotal(), 1);
    mGauge->SetValue(static_cast<int>(1000.0 * (mControl.GetDone() + share) / total));
    wxString text = wxString::Format("%d / %d", mControl.GetDone(), total);
    if (!work.empty()) text += ", " + work;
    Say(mLast.empty() ? text : text + "  " + mLast);
}

void PovRayGUI_cls::UpdateButtonLabels() {
    const bool rendering = mControl.IsRendering();
    mExport->Enable(!rendering);
    mRenderFrame->Enable(!rendering);
    mRenderAnimation->SetLabel(rendering ? _("Abort") : _("Render Animation"));
    mRenderAnimation->SetToolTip(rendering ? _("Ends the rendering; finished pictures stay")
                                           : wxGetTranslation(kRenderTip));
    if (!rendering) {
        mTimer.Stop();
    } else if (!mTimer.IsRunning()) {
        mTimer.Start(kLookPeriodMs);
    }
    Layout();
}

void OpenPovRay(wxWindow* parent, FrameContext_cls& context) {
    SettingsDialog_cls::Open(*parent, PovRayGUI_cls::kTitle, [&context](wxWindow* window) {
        return new PovRayGUI_cls(window, context.povRayCtrl, context.timeCtrl,
                                 context.isPovrayCondistionSatisfiled,
                                 [&context] { return ShownInstant_cls::MayPrepare(context); });
    });
}
