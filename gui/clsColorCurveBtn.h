#pragma once

#include <wx/panel.h>

#include "gui/clsSettingsView.h"

class ColorCurve_cls;
class ColorCurveCtrl_cls;
class wxBitmapButton;
class wxButton;

/// A curve as a button with its gradient: a press opens the editor on it. Beside it, copy and paste of the
/// whole curve through the internal clipboard; Ctrl+C and Ctrl+V do the same.
/// Owned by its parent window; the curve and the controller outlive it. Threads: GUI thread.
class ColorCurveBtn_cls : public wxPanel, public SettingsView_cls {
  public:
    ColorCurveBtn_cls(wxWindow* parent, const wxString& name, ColorCurve_cls& curve,
                      ColorCurveCtrl_cls& ctrl);

    void ShowSettings(std::uint64_t updateBits) override;
    wxWindow& GetGradient();

  private:
    void PaintGradient();
    void Copy();
    void Paste();

    ColorCurve_cls& mCurve;
    ColorCurveCtrl_cls& mCtrl;
    wxBitmapButton* mGradient;
};
