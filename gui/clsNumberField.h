#pragma once

#include <wx/panel.h>

#include <vector>

#include "gui/clsSetting.h"

class wxStaticText;
class wxTextCtrl;

/// What a number field takes, and how it steps.
struct NumberLimits_cls {
    double min = -1e30;
    double max = 1e30;
    bool whole = false;
    wxString unit{};
    /// What an arrow key adds; 0: one in the number's second digit.
    double step = 0.0;
};

/// A number that is typed: text, unit and a mark. An entry is taken by Enter or by leaving the field, and is
/// one undo step; Escape gives back what was there; the up and down keys step. What is no number, or lies
/// outside the limits, is marked in place of the unit and never taken.
/// Numbers are read and written with "." whatever the language, as in files.
/// Owned by its parent window. Threads: GUI thread.
class NumberField_cls : public wxPanel {
  public:
    NumberField_cls(wxWindow* parent, const wxString& name, const wxString& tooltip,
                    const NumberLimits_cls& limits, Setting_cls<double> setting);

    /// Shows the setting, unless the user is typing.
    void RefreshFromModel();
    bool IsMarked() const { return mMarked; }
    wxTextCtrl& GetText() { return *mText; }

    /// The shortest text of a number; of a whole one without a point.
    static wxString Format(double value, bool whole);
    /// False for what is no number as a whole.
    static bool Parse(const wxString& text, double& value);

  private:
    bool ReadEntry(double& value) const;
    void ShowMark();
    void Commit();
    void Step(int direction);
    wxString GetLimitWords() const;

    const NumberLimits_cls mLimits;
    const Setting_cls<double> mSetting;
    wxTextCtrl* mText;
    wxStaticText* mUnit;
    bool mMarked = false;
};
