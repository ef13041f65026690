#include "gui/clsFrameParts.h"

#include <wx/panel.h>

#include "gui/clsFrameContext.h"

const std::vector<FramePage_cls>& FramePages() {
    static const std::vector<FramePage_cls> pages = {};
    return pages;
}

const std::vector<FrameDialog_cls>& FrameDialogs() {
    static const std::vector<FrameDialog_cls> dialogs = {};
    return dialogs;
}

wxWindow* MakeBottomHalf(wxWindow* parent, FrameContext_cls&) {
    return new wxPanel(parent);
}
