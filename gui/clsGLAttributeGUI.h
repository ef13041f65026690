#pragma once

#include "gui/clsSettingsPage.h"

class ColorCurveCtrl_cls;
class GLAttribute_cls;

/// The page "Attrib 0" to "Attrib 3": how the particles of one type are drawn. What has no effect with the
/// chosen type of drawing is greyed.
/// Owned by its parent window; attribute and controller outlive it. Threads: GUI thread.
class GLAttributeGUI_cls : public SettingsPage_cls {
  public:
    GLAttributeGUI_cls(wxWindow* parent, GLAttribute_cls& attribute, ColorCurveCtrl_cls& ctrl);

  private:
    void AddTypes();
    void AddRadius();
    void AddAlpha();
    void AddColors(ColorCurveCtrl_cls& ctrl);
    /// Its gradient is greyed while the condition does not hold.
    void AddCurve(const wxString& label, int curve, ColorCurveCtrl_cls& ctrl,
                  std::function<bool()> condition);
    /// Greys the control while the condition does not hold.
    void EnableWhen(wxWindow& control, std::function<bool()> condition);

    GLAttribute_cls& mAttribute;
    const wxString mTitle;
};
