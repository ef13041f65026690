#pragma once

#include <wx/panel.h>
#include <wx/timer.h>

#include "gui/clsSetting.h"
#include "gui/clsSettingsView.h"
#include "render/clsValueHistogram.h"

class ColorCurve_cls;
class ColorCurveCanvas_cls;
class ColorCurveCtrl_cls;
class SettingsPage_cls;
class wxChoice;

/// The panel of the colour-curve editor: a choice among the program's curves, the chosen one with the
/// histogram of the values that feed it, the key at the current position, the curve's settings, and the
/// template palette. Shows the curve that the controller links; without one, an empty picture. Owned by its
/// parent window. Threads: GUI thread.
class ColorCurveGUI_cls : public wxPanel, public SettingsView_cls {
  public:
    static constexpr const char* kTitle = "Color Curve Editor";

    using Curves = std::vector<ColorCurve_cls*>;

    /// The curves that may be chosen outlive the panel.
    ColorCurveGUI_cls(wxWindow* parent, ColorCurveCtrl_cls& ctrl, Curves curves);

    /// Another curve has been linked.
    void ShowLinked();
    void ShowSettings(std::uint64_t updateBits) override;

  private:
    SettingsPage_cls* MakeKeyPage();
    SettingsPage_cls* MakeScalingPage();
    wxSizer* MakeChoice();
    wxSizer* MakeButtons();
    /// At once, as far as the frame is ready, or soon: values are millions, and while playing there are many.
    void UpdateHistogram();
    void UpdateHistogramSoon();
    void SetRange(const ValueHistogram_cls::Range& range);

    /// A part of the linked curve as a setting; `empty` is shown without a curve.
    template <class Value, class Stored>
    Setting_cls<Value> BindLinked(const wxString& name, Stored ColorCurve_cls::*item, Value empty);
    Setting_cls<double> BindChannel(size_t channel);
    Setting_cls<Color4> BindKeyColor();

    ColorCurveCtrl_cls& mCtrl;
    const Curves mCurves;
    ValueHistogram_cls mHistogram;
    wxTimer mHistogramTimer;
    wxChoice* mChoice = nullptr;
    ColorCurveCanvas_cls* mCanvas = nullptr;
    SettingsPage_cls* mKeyPage = nullptr;
    SettingsPage_cls* mScalingPage = nullptr;
};
