#include "gui/clsTimelinePanel.h"

#include <wx/clipbrd.h>
#include <wx/sizer.h>

#include "gui/clsTimelineCanvas.h"
#include "timeline/clsUndoManager.h"

namespace {

void PutClipboard(const wxString& text) {
    const wxClipboardLocker lock;
    if (!!lock) wxTheClipboard->SetData(new wxTextDataObject(text));
}

wxString GetClipboard() {
    const wxClipboardLocker lock;
    wxTextDataObject data;
    return !!lock && wxTheClipboard->GetData(data) ? data.GetText() : wxString();
}

}  // namespace

TimelinePanel_cls::TimelinePanel_cls(wxWindow* parent, TimeCtrl_cls& timeCtrl,
                                     const std::vector<ParamGroup_cls*>& groups)
    : wxPanel(parent),
      mModel(timeCtrl, groups),
      mPlayBar(new TimelinePlayBar_cls(this, timeCtrl)),
      mCanvas(new TimelineCanvas_cls(this, mModel)) {
    mModel.mKeys.SetClipboard({PutClipboard, GetClipboard});
    AddSwitches();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mPlayBar, wxSizerFlags().Expand());
    sizer->Add(mCanvas, wxSizerFlags(1).Expand());
    SetSizer(sizer);

    mObserver = GCUndoList.AddObserver([this](std::uint64_t bits) {
        constexpr std::uint64_t kCursorOnly = CommandItem_cls::kUpdateTime | CommandItem_cls::kUpdateRedraw;
        mPlayBar->RefreshFromModel();
        if (bits & ~kCursorOnly) mCanvas->RefreshAll();
        if (bits & CommandItem_cls::kUpdateTime) mCanvas->RefreshCursor();
    });
}

TimelinePanel_cls::~TimelinePanel_cls() {
    GCUndoList.RemoveObserver(mObserver);
    if (mServed) *mServed = {};
}

void TimelinePanel_cls::AddSwitches() {
    TimeCtrl_cls& timeCtrl = mModel.mTimeCtrl;
    mPlayBar->AddSwitch(
        "remap", "Time remap: a curve decides which data each frame shows",
        [&timeCtrl] { return timeCtrl.GetSettings().IsTimeRemap(); },
        [&timeCtrl](bool on) { timeCtrl.SetTimeRemapCommand(on); });
    mPlayBar->AddSwitch(
        "filter", "List only groups with keys", [this] { return mModel.mTree.IsOnlyKeyed(); },
        [this](bool on) {
            mModel.mTree.SetOnlyKeyed(on);
            mCanvas->RefreshAll();
        });
    mPlayBar->AddSwitch(
        "hidden", "Hide shy groups", [this] { return mModel.mTree.IsHideShy(); },
        [this](bool on) {
            mModel.mTree.SetHideShy(on);
            mCanvas->RefreshAll();
        });
    mPlayBar->AddSwitch(
        "curve", "Show the curves of the current lane", [this] { return mCanvas->IsShowingCurves(); },
        [this](bool on) { mCanvas->ShowCurves(on); });
}

void TimelinePanel_cls::RefreshFromModel() {
    mPlayBar->RefreshFromModel();
    mCanvas->RefreshAll();
}

void TimelinePanel_cls::ServeGroups(ParamHost_cls& host) {
    mServed = &host;
    host.putClipboard = PutClipboard;
    host.getClipboard = GetClipboard;
    host.createKeyDialog = [this](ParamGroup_cls& group, double t) { mCanvas->EditKey(group, t); };
}
