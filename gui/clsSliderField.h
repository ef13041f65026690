#pragma once

#include <wx/panel.h>

#include "gui/clsNumberField.h"

class wxSlider;

/// A number with a slider before its field. A drag of the slider changes the setting as it goes and is one
/// undo step. A logarithmic slider has steps of equal ratio, for settings that span decades.
/// The slider covers `low` to `high`; the field takes all that its limits allow.
/// Owned by its parent window. Threads: GUI thread.
class SliderField_cls : public wxPanel {
  public:
    struct Range {
        double low = 0.0;
        double high = 1.0;
        bool logarithmic = false;
    };

    SliderField_cls(wxWindow* parent, const wxString& name, const wxString& tooltip, const Range& range,
                    const NumberLimits_cls& limits, const Setting_cls<double>& setting);

    void RefreshFromModel();
    wxSlider& GetSlider() { return *mSlider; }

  private:
    double FromPosition(int position) const;
    int ToPosition(double value) const;
    void OnSlide();
    void EndDrag();

    const Range mRange;
    const bool mWhole;
    const Setting_cls<double> mSetting;
    wxSlider* mSlider;
    NumberField_cls* mField;
    bool mDragging = false;
};
