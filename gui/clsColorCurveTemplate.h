#pragma once

#include <wx/panel.h>

#include <functional>

class ColorCurve_cls;

/// The template palette: nine buttons with the gradients of the templates. A press hands the template on; its
/// owner copies the keys into the curve that is edited.
/// Owned by the editor's panel. Threads: GUI thread.
class ColorCurveTemplate_cls : public wxPanel {
  public:
    static constexpr const char* kTitle = "Color Curve Template";

    ColorCurveTemplate_cls(wxWindow* parent, std::function<void(const ColorCurve_cls& source)> press);
};
