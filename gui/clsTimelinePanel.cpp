#include "gui/clsTimelinePanel.h"

#include <wx/sizer.h>

#include "timeline/clsUndoManager.h"

TimelinePanel_cls::TimelinePanel_cls(wxWindow* parent, TimeCtrl_cls& timeCtrl,
                                     const std::vector<ParamGroup_cls*>& groups)
    : wxPanel(parent),
      mTimeCtrl(timeCtrl),
      mGroups(groups),
      mPlayBar(new TimelinePlayBar_cls(this, timeCtrl)) {
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mPlayBar, wxSizerFlags().Expand());
    SetSizer(sizer);
    mObserver = GCUndoList.AddObserver([this](std::uint64_t) { RefreshFromModel(); });
}

TimelinePanel_cls::~TimelinePanel_cls() {
    GCUndoList.RemoveObserver(mObserver);
}

void TimelinePanel_cls::RefreshFromModel() {
    mPlayBar->RefreshFromModel();
}
