#include "gui/clsFrameMain.h"

#include <wx/display.h>
#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/splitter.h>

#include <algorithm>
#include <memory>

#include "data/clsPDataSeqCtrl.h"
#include "data/clsPreference.h"
#include "gui/clsDataOpening.h"
#include "gui/clsEditorParts.h"
#include "gui/clsFaultBar.h"
#include "gui/clsFileDrop.h"
#include "gui/clsFrameParts.h"
#include "gui/clsFrameStatus.h"
#include "gui/clsMainGLCanvas.h"
#include "gui/clsSettingsView.h"
#include "gui/clsTimelinePanel.h"
#include "gui/clsTopHalfPanel.h"
#include "render/clsFirstLook.h"
#include "timeline/clsCommandItem.h"
#include "timeline/clsTimeCtrl.h"
#include "timeline/clsUndoManager.h"

namespace {

const wxSize kFirstSize(1280, 800);
constexpr int kTimelineHeight = 230;
constexpr int kPagesBorder = 2;
constexpr int kLeastPart = 120;
/// A window manager that is slower does not get its window waited for.
constexpr long long kShowPatienceMs = 1000;
constexpr int kShowPeriodMs = 5;
constexpr int kEndPeriodMs = 200;
constexpr int kLeastWidth = 260;  // below it the pages' controls do not fit

void TellViews(wxWindow& window, std::uint64_t updateBits) {
    if (auto* view = dynamic_cast<SettingsView_cls*>(&window)) view->ShowSettings(updateBits);
    for (wxWindow* child : window.GetChildren()) TellViews(*child, updateBits);
}

/// A sash's place counted from the far end, below 0, as wxSplitterWindow takes it back.
int FromFarEnd(const wxSplitterWindow& splitter, int position) {
    const wxSize size = splitter.GetClientSize();
    const bool upright = splitter.GetSplitMode() == wxSPLIT_VERTICAL;
    return std::min(position - (upright ? size.x : size.y), -1);
}

/// Keeps the part behind the sash as large as it is wanted, also after the window was too small for it:
/// windows pass through tiny sizes before the window manager grants theirs. `position` is below 0, counted
/// from the far end.
void KeepFarPart(wxSplitterWindow& splitter, int position) {
    const auto wanted = std::make_shared<int>(position);
    splitter.SetSashPosition(position);
    splitter.Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [wanted, &splitter](wxSplitterEvent& event) {
        *wanted = FromFarEnd(splitter, event.GetSashPosition());
        event.Skip();
    });
    splitter.Bind(wxEVT_SIZE, [wanted, &splitter](wxSizeEvent& event) {
        event.Skip();
        splitter.CallAfter([wanted, &splitter] { splitter.SetSashPosition(*wanted); });
    });
}

}  // namespace

FrameMain_cls::FrameMain_cls(FrameContext_cls& context)
    : wxFrame(nullptr, wxID_ANY, wxString()),  // ShowTitle() gives it one
      mContext(context),
      mWatch(mClock, [this] { mStatus->PaintNow(); }),
      mSink(*this),
      mMessage(*this),
      mUser(context.keepsUserSettings),
      mFiles(*this, context, mUser,
             {.replaced =
                  [this] {
                      mFaults->Dismiss();
                      RefreshAll();
                  },
              .tellFaults = [this](const std::vector<wxString>& lines) { mFaults->Tell(lines); }}),
      mInstant(context, [this](const SnapData_cls& state) { SuggestFirstLook(state); }),
      mPlayback(context, mInstant, mClock,
                {.isShowing = [this] { return mViews->IsShowing(); },
                 .redraw = [this] { mViews->Redraw(); },
                 .tellFaults = [this](const std::vector<wxString>& lines) { mFaults->Tell(lines); }}),
      mMenu(*this),
      mDialogs([this] { CallAfter([this] { Close(); }); }),
      mObserver(GCUndoList.AddObserver([this](std::uint64_t bits) { OnUpdate(bits); })) {
    mUser.ReadDefaults(mContext.preference.GetItems());
    mContext.applyPreferences();
    MakeParts();
    ConnectColorCurves(this, mContext);
    ConnectSeriesProgress(this);
    MakeMenus();
    PlaceWindow();
    // Questions may be asked: not inside the drop, which the other program waits for.
    SetDropTarget(
        new FileDrop_cls([this](const wxString& file) { CallAfter([this, file] { mFiles.Open(file); }); }));
    for (const int event : {EventSink_cls::kRefreshPanels, EventSink_cls::kRedraw,
                            EventSink_cls::kRefreshStatus, EventSink_cls::kRendererReturned}) {
        Bind(wxEVT_MENU, &FrameMain_cls::OnPosted, this, event);
    }
    Bind(wxEVT_CLOSE_WINDOW, &FrameMain_cls::OnClose, this);
    // A progress dialog disables the window meanwhile, which leaves the keyboard nowhere.
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        event.Skip();
        if (event.GetActive())
            CallAfter([this] {
                if (!FindFocus()) mViews->GetCanvas(0).SetFocus();
            });
    });
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        mPlayback.Work();
        event.Skip();
    });
    RefreshAll();
}

FrameMain_cls::~FrameMain_cls() {
    GCUndoList.RemoveObserver(mObserver);
}

void FrameMain_cls::MakeParts() {
    mFaults = new FaultBar_cls(this);
    mHalves = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                   wxSP_LIVE_UPDATE | wxSP_3DSASH, "halves");
    mTop = new wxSplitterWindow(mHalves, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                wxSP_LIVE_UPDATE | wxSP_3DSASH, "top");
    mViews = new TopHalfPanel_cls(mTop, mContext, mInstant, mWatch);
    mPages = new wxNotebook(mTop, wxID_ANY);
    for (const FramePage_cls& page : FramePages()) mPages->AddPage(page.make(mPages, mContext), page.title);
    for (wxSplitterWindow* splitter : {mHalves, mTop}) {
        splitter->SetMinimumPaneSize(FromDIP(splitter == mTop ? kLeastWidth : kLeastPart));
        // The views take what the window gains.
        splitter->SetSashGravity(1.0);
    }
    if (mPages->GetPageCount() > 0) {
        mTop->SplitVertically(mViews, mPages, -PagesWidth());
    } else {
        mPages->Hide();
        mTop->Initialize(mViews);
    }
    wxWindow* timeline = MakeBottomHalf(mHalves, mContext);
    mTimeline = dynamic_cast<TimelinePanel_cls*>(timeline);
    if (mTimeline) {
        mTimeline->SetPlayActions({.start = [this](int increment) { mPlayback.Start(increment); },
                                   .stop = [this] { mPlayback.Stop(); }});
    }
    mHalves->SplitHorizontally(mTop, timeline, -FromDIP(kTimelineHeight));
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(mFaults, 0, wxEXPAND);
    column->Add(mHalves, 1, wxEXPAND);
    SetSizer(column);
    mStatus = new FrameStatus_cls(this, mContext, mPlayback, mWatch, [this] { StopWaiting(); });
    SetStatusBar(mStatus);
}

int FrameMain_cls::PagesWidth() const {
    int width = 0;
    for (size_t i = 0; i < mPages->GetPageCount(); ++i)
        width = std::max(width, mPages->GetPage(i)->GetBestSize().x);
    return width + mTop->GetSashSize() + FromDIP(kPagesBorder);
}

void FrameMain_cls::ShowAndWait() {
    const auto painted = std::make_shared<bool>(false);
    mStatus->Bind(wxEVT_PAINT, [painted](wxPaintEvent& event) {
        *painted = true;
        event.Skip();
    });
    // Else the toolkit would begin with a field, its text marked.
    mViews->GetCanvas(0).SetFocus();
    Show();
    const long long begin = mClock.Now();
    PollUntil([&] { return *painted || mClock.Now() - begin > kShowPatienceMs; }, kShowPeriodMs);
    mViews->GetCanvas(0).SetFocus();
}

void FrameMain_cls::PlaceWindow() {
    SetMinSize(FromDIP(wxSize(640, 400)));
    const auto last = mUser.GetWindow();
    const bool seen =
        last && !last->place.IsEmpty() && wxDisplay::GetFromPoint(last->place.GetPosition()) != wxNOT_FOUND;
    if (!seen) {
        const wxSize screen = wxDisplay(this).GetClientArea().GetSize();
        const wxSize wanted = FromDIP(kFirstSize);
        SetClientSize(wxSize(std::min(wanted.x, screen.x), std::min(wanted.y, screen.y)));
        // The window manager's frame does not fit around it.
        if (screen.x <= wanted.x || screen.y <= wanted.y) Maximize();
    } else {
        Move(last->place.GetPosition());
        SetClientSize(last->place.GetSize());
    }
    if (last && last->maximized) Maximize();
    const int sash = last && last->sash < 0 ? last->sash : -FromDIP(kTimelineHeight);
    const int pages = last && last->pages < 0 ? last->pages : -PagesWidth();
    KeepFarPart(*mHalves, sash);
    if (mTop->IsSplit()) KeepFarPart(*mTop, pages);
}

// Commands

void FrameMain_cls::TogglePlay() {
    if (mContext.timeCtrl.IsPlaying()) {
        mPlayback.Stop();
    } else {
        mPlayback.Start(1);
    }
}

void FrameMain_cls::StopWaiting() {
    if (mPlayback.IsSlow()) {
        mPlayback.StopReading();
    } else {
        mPlayback.Stop();
    }
    mViews->StopDrawing();
}

void FrameMain_cls::GoToFrame(int frame) {
    mContext.timeCtrl.SetFrameFromDoubleCommand(mContext.timeCtrl.GetDoubleIndex(frame, 0));
}

void FrameMain_cls::Undo() {
    GCUndoList.UndoCurrent();
}

void FrameMain_cls::Redo() {
    if (GCUndoList.CanRedo()) GCUndoList.ExecCurrent();
}

void FrameMain_cls::RemoveCache(bool all) {
    const int snapshot = all ? PDataSequence_cls::kAll : mContext.timeCtrl.GetRemappedIndex();
    if (mContext.seqCtrl.GetActive().GetSeqLength() == 0) return;
    mContext.seqCtrl.ClearData(PDataSeqCtrl_cls::kActive, snapshot, false);
    mPlayback.ReadOn();
    mPlayback.Work();
    mStatus->RefreshFromModel();
}

// Refreshing

void FrameMain_cls::RefreshAll() {
    mInstant.Forget();
    mPlayback.ReadOn();
    ShowSettings(SettingsView_cls::kAll);
    if (mTimeline) mTimeline->RefreshFromModel();
    ShowTitle();
    mStatus->RefreshFromModel();
    mViews->Redraw();
    mPlayback.Work();
}

void FrameMain_cls::SuggestFirstLook(const SnapData_cls& state) {
    if (!mFiles.TakeWantsLook()) return;
    for (const wxString& line :
         SuggestLook(state, mViews->GetCanvas(0).GetClientSize().y, mContext.givenSettings))
        mContext.applySetting(line);
    mFiles.NoteLook();
    mInstant.Invalidate();
    ShowSettings(SettingsView_cls::kAll);
}

void FrameMain_cls::ShowSettings(std::uint64_t updateBits) {
    TellViews(*this, updateBits);
}

void FrameMain_cls::ShowTitle() {
    const wxString title = mFiles.GetTitle();
    if (title != GetTitle()) SetTitle(title);
}

void FrameMain_cls::OnUpdate(std::uint64_t updateBits) {
    using Bits = CommandItem_cls;
    if (updateBits & (Bits::kUpdatePanels | Bits::kUpdateKeys)) mInstant.Invalidate();
    mFiles.NoteChange();
    ShowSettings(updateBits);
    ShowTitle();
    // Where playing has stopped, nothing else would show the last step.
    if (mStatus && (updateBits & Bits::kUpdateTime)) mStatus->RefreshFromModel();
}

void FrameMain_cls::OnPosted(wxCommandEvent& event) {
    const bool fromWindow = mSink.Taken(event.GetId());
    switch (event.GetId()) {
        case EventSink_cls::kRefreshPanels:
            RefreshAll();
            break;
        case EventSink_cls::kRedraw:
            // A reader or rate stage has ended: the views follow when their instant has become ready.
            if (fromWindow) mViews->Redraw();
            mPlayback.Work();
            mStatus->RefreshFromModel();
            break;
        case EventSink_cls::kRefreshStatus:
            mStatus->RefreshFromModel();
            break;
        default:
            ShowSettings(SettingsView_cls::kAll);
    }
}

void FrameMain_cls::End() {
    mEnding = true;
    mFiles.Finish(true);
    // Tried until it is done: behind a message that is closed another may come up.
    mEndTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Close(); });
    mEndTimer.Start(kEndPeriodMs);
    Close();
}

void FrameMain_cls::OnClose(wxCloseEvent& event) {
    // A window that waits for a thread closes afterwards.
    if (mClock.IsWaiting()) {
        event.Veto();
        CallAfter([this] { Close(); });
        return;
    }
    // Dialogs on the stack are the window's children: they return first.
    if (mDialogs.IsAnyOpen()) {
        event.Veto();
        mDialogs.Cancel();
        return;
    }
    if (event.CanVeto() && !mEnding && !mFiles.MayLoseChanges()) {
        event.Veto();
        return;
    }
    mEndTimer.Stop();
    mContext.timeCtrl.ProcStopPlaying();
    mUser.SaveDefaults(mContext.preference.GetItems());
    mUser.SaveWindow(*this, FromFarEnd(*mHalves, mHalves->GetSashPosition()),
                     mTop->IsSplit() ? FromFarEnd(*mTop, mTop->GetSashPosition()) : 0);
    mFiles.Finish(mEnding);
    if (!mContext.quit() && !mEnding)
        UserMessage_cls::Tell("Warning", "The configuration could not be written.");
    Destroy();
}
