#include "gui/clsViewPanel.h"

#include <wx/sizer.h>

#include "gui/clsMainGLCanvas.h"
#include "gui/clsViewToolbar.h"

namespace {

PanelCamera_cls::Side SideOf(unsigned int index) {
    if (index == 2) return PanelCamera_cls::Side::Side;
    return index == 3 ? PanelCamera_cls::Side::Top : PanelCamera_cls::Side::Front;
}

}  // namespace

ViewPanel_cls::ViewPanel_cls(wxWindow* parent, unsigned int index, FrameContext_cls& context,
                             ShownInstant_cls& instant, MovedCamera_cls& moved, ViewGL_cls& gl)
    : wxPanel(parent),
      mCamera(context, instant, *context.panelSettings[index], moved, SideOf(index)),
      mToolbar(new ViewToolbar_cls(this, *context.panelSettings[index], mCamera)),
      mCanvas(new MainGLCanvas_cls(this, index, context, instant, mCamera, gl)) {
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(mToolbar, 0, wxEXPAND);
    column->Add(mCanvas, 1, wxEXPAND);
    SetSizer(column);
}
