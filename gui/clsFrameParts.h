#pragma once

#include <wx/string.h>

#include <functional>
#include <vector>

class wxWindow;
struct FrameContext_cls;

/// A page of the notebook at the right.
struct FramePage_cls {
    wxString title;
    std::function<wxWindow*(wxWindow* parent, FrameContext_cls& context)> make;
};

/// A dialog that a menu opens.
struct FrameDialog_cls {
    enum class Menu { File, Edit, View, Data, Animation, Render };
    Menu menu;
    wxString label;  ///< with "&" and, behind a tab, the accelerator
    wxString help;   ///< for the status bar
    std::function<void(wxWindow* parent, FrameContext_cls& context)> open;
};

/// The parts that hang in the main window, in the order in which they are shown. A new page or dialog is a
/// line in clsFrameParts.cpp.
const std::vector<FramePage_cls>& FramePages();
const std::vector<FrameDialog_cls>& FrameDialogs();
/// The bottom half: the timeline.
wxWindow* MakeBottomHalf(wxWindow* parent, FrameContext_cls& context);
