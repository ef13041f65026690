#include "gui/clsFrameMain.h"

#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/splitter.h>

#include "gui/clsEditorParts.h"
#include "gui/clsFrameParts.h"
#include "gui/clsSettingsView.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr const char* kTitle = "Varnholt 3 v 0.80";

void TellViews(wxWindow& window, std::uint64_t updateBits) {
    if (auto* view = dynamic_cast<SettingsView_cls*>(&window)) view->ShowSettings(updateBits);
    for (wxWindow* child : window.GetChildren()) TellViews(*child, updateBits);
}

}  // namespace

FrameMain_cls::FrameMain_cls(FrameContext_cls& context)
    : wxFrame(nullptr, wxID_ANY, kTitle),
      mContext(context),
      mSink(*this),
      mMessage(*this),
      mObserver(GCUndoList.AddObserver([this](std::uint64_t bits) { OnUpdate(bits); })) {
    MakeParts();
    ConnectColorCurves(this, mContext);
    for (const int event : {EventSink_cls::kRefreshPanels, EventSink_cls::kRedraw,
                            EventSink_cls::kRefreshStatus, EventSink_cls::kRendererReturned}) {
        Bind(wxEVT_MENU, &FrameMain_cls::OnPosted, this, event);
    }
}

FrameMain_cls::~FrameMain_cls() {
    GCUndoList.RemoveObserver(mObserver);
}

void FrameMain_cls::MakeParts() {
    mSplitter = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE);
    auto* top = new wxPanel(mSplitter);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    auto* views = new wxPanel(top);
    row->Add(views, 1, wxEXPAND);
    mPages = new wxNotebook(top, wxID_ANY);
    for (const FramePage_cls& page : FramePages()) mPages->AddPage(page.make(mPages, mContext), page.title);
    row->Add(mPages, 0, wxEXPAND);
    top->SetSizer(row);
    mSplitter->SplitHorizontally(top, MakeBottomHalf(mSplitter, mContext));
    mSplitter->SetSashGravity(1.0);
    SetClientSize(FromDIP(wxSize(1280, 760)));
}

void FrameMain_cls::OpenProject(const wxString& path) {
    mContext.openProject(path);
    ShowSettings(SettingsView_cls::kAll);
}

void FrameMain_cls::OpenData(const wxString& path) {
    mContext.openData(path);
}

void FrameMain_cls::OnPosted(wxCommandEvent& event) {
    mSink.Taken(event.GetId());
    if (event.GetId() == EventSink_cls::kRefreshPanels) ShowSettings(SettingsView_cls::kAll);
}

void FrameMain_cls::OnUpdate(std::uint64_t updateBits) {
    ShowSettings(updateBits);
}

void FrameMain_cls::ShowSettings(std::uint64_t updateBits) {
    TellViews(*this, updateBits);
}
