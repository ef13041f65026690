#include "gui/clsTopHalfPanel.h"

#include <algorithm>

#include "gui/clsDrawWatch.h"
#include "gui/clsMainGLCanvas.h"
#include "gui/clsSpacing.h"
#include "gui/clsViewLayout.h"
#include "gui/clsViewPanel.h"
#include "gui/clsViewToolbar.h"
#include "render/clsPanelSettings.h"
#include "render/clsPanelShared.h"
#include "timeline/clsCommandSetValue.h"

TopHalfPanel_cls::TopHalfPanel_cls(wxWindow* parent, FrameContext_cls& context, ShownInstant_cls& instant,
                                   DrawWatch_cls& watch)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "views"),
      mContext(context),
      mGL(context, watch) {
    for (unsigned int i = 0; i < mPanels.size(); ++i) {
        if (i > 0) {
            // The first view is the film's; the others look at it from the front, the side and the top.
            context.panelSettings[i]->mDisplayMode.mValue = static_cast<unsigned int>(DisplayMode::kFree);
            context.panelSettings[i]->mGeometry.mValue = PanelSettings_cls::kOrthographic;
        }
        mPanels[i] = new ViewPanel_cls(this, i, context, instant, mMoved, mGL);
        mPanels[i]->GetCanvas().Bind(wxEVT_SET_FOCUS, [this, i](wxFocusEvent& event) {
            Activate(i);
            event.Skip();
        });
        mPanels[i]->GetCanvas().mOtherCameras = [this, i] {
            std::vector<ViewCamera_cls> others;
            for (ViewPanel_cls* panel : mPanels) {
                if (panel != mPanels[i] && panel->IsShown()) others.push_back(panel->GetCanvas().GetCamera());
            }
            return others;
        };
    }
    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { Arrange(); });
    Arrange();
}

TopHalfPanel_cls::~TopHalfPanel_cls() {
    for (ViewPanel_cls* panel : mPanels) panel->GetCanvas().DropPicture();
}

unsigned int TopHalfPanel_cls::GetLayout() const {
    return mContext.panelShared.mLayout.mValue;
}

void TopHalfPanel_cls::SetLayoutCommand(unsigned int layout) {
    SetValueCommand("View Layout", mContext.panelShared.mLayout.mValue, layout,
                    CommandItem_cls::kUpdatePanels | CommandItem_cls::kUpdateRedraw);
}

void TopHalfPanel_cls::Arrange() {
    mArranged = GetLayout();
    const std::vector<wxRect> places =
        ViewLayout::Places(GetLayout(), GetClientSize(), FromDIP(Spacing::kThin));
    for (size_t i = 0; i < mPanels.size(); ++i) {
        const bool shown = i < places.size();
        if (shown) mPanels[i]->SetSize(places[i]);
        mPanels[i]->Show(shown);
    }
    Activate(mActive < places.size() ? mActive : 0);
}

void TopHalfPanel_cls::Activate(size_t panel) {
    mActive = panel;
    const bool several = ViewLayout::Count(GetLayout()) > 1;
    for (size_t i = 0; i < mPanels.size(); ++i) mPanels[i]->GetToolbar().ShowActive(several && i == panel);
}

void TopHalfPanel_cls::Redraw() {
    for (ViewPanel_cls* panel : mPanels) {
        if (panel->IsShown()) panel->GetCanvas().Redraw();
    }
}

bool TopHalfPanel_cls::IsDrawn() const {
    return std::all_of(mPanels.begin(), mPanels.end(),
                       [](ViewPanel_cls* panel) { return panel->GetCanvas().IsDrawn(); });
}

bool TopHalfPanel_cls::IsShowing() const {
    return std::all_of(mPanels.begin(), mPanels.end(),
                       [](ViewPanel_cls* panel) { return panel->GetCanvas().IsShowing(); });
}

void TopHalfPanel_cls::StopDrawing() {
    mGL.GetWatch().Stop();
    for (ViewPanel_cls* panel : mPanels) panel->GetCanvas().StopDrawing();
}

PanelCamera_cls& TopHalfPanel_cls::GetActiveCamera() {
    return mPanels[mActive]->GetCamera();
}

MainGLCanvas_cls& TopHalfPanel_cls::GetCanvas(size_t panel) {
    return mPanels[panel]->GetCanvas();
}

void TopHalfPanel_cls::ShowSettings(std::uint64_t) {
    if (GetLayout() != mArranged) Arrange();
}
