#pragma once

#include <wx/panel.h>

#include "gui/clsNumberLimits.h"
#include "gui/clsSetting.h"

class wxStaticText;
class wxTextCtrl;

/// A number that is typed: text, unit and a mark. An entry is taken by Enter or by leaving the field, and is
/// one undo step; Escape gives back what was there; the up and down keys step. What is no number, or lies
/// outside the limits, is marked in place of the unit and never taken.
/// Owned by its parent window. Threads: GUI thread.
class NumberField_cls : public wxPanel {
  public:
    NumberField_cls(wxWindow* parent, const wxString& name, const wxString& tooltip,
                    const NumberLimits_cls& limits, Setting_cls<double> setting);

    /// Shows the setting, unless the user is typing.
    void RefreshFromModel();
    bool IsMarked() const { return mMarked; }
    wxTextCtrl& GetText() { return *mText; }

  private:
    void ShowMark();
    void Commit();
    void Step(int direction);

    const NumberLimits_cls mLimits;
    const Setting_cls<double> mSetting;
    wxTextCtrl* mText;
    wxStaticText* mUnit;
    bool mMarked = false;
};
