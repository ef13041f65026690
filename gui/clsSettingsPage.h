#pragma once

#include <wx/scrolwin.h>

#include <functional>
#include <vector>

#include "gui/clsNumberField.h"
#include "gui/clsSettingsView.h"
#include "gui/clsSliderField.h"

class wxCheckBox;
class wxChoice;
class wxBoxSizer;
class wxFlexGridSizer;
class wxStaticText;
class wxTextCtrl;

/// A page of settings, built row by row: label, control, unit. All pages and dialogs of settings are made of
/// it, so that every control is undoable, follows undo and redo, has a tooltip and is reached by the Tab key.
/// A control bears the label of its row as its window name. Scrolls when it is higher than its place.
/// Owned by its parent window. Threads: GUI thread.
class SettingsPage_cls : public wxScrolledWindow, public SettingsView_cls {
  public:
    explicit SettingsPage_cls(wxWindow* parent);

    /// Begins a part of the page under a heading. Rows before the first have none.
    void BeginGroup(const wxString& heading);
    /// What follows stands to the right of what is there: for dialogs that would be too high.
    void BeginColumn();

    wxChoice& AddChoice(const wxString& label, const wxString& tooltip, const wxArrayString& names,
                        const Setting_cls<unsigned int>& setting);
    NumberField_cls& AddNumber(const wxString& label, const wxString& tooltip, const NumberLimits_cls& limits,
                               const Setting_cls<double>& setting);
    /// Several numbers in one row, e.g. the components of a vector. Window names end in " 0", " 1", ...
    std::vector<NumberField_cls*> AddNumbers(const wxString& label, const wxString& tooltip,
                                             const NumberLimits_cls& limits,
                                             const std::vector<Setting_cls<double>>& settings);
    SliderField_cls& AddSlider(const wxString& label, const wxString& tooltip,
                               const SliderField_cls::Range& range, const NumberLimits_cls& limits,
                               const Setting_cls<double>& setting);
    wxCheckBox& AddCheck(const wxString& label, const wxString& tooltip, const Setting_cls<bool>& setting);
    /// Red, green and blue by the colour dialog; alpha stays as it is.
    void AddColor(const wxString& label, const wxString& tooltip, const Setting_cls<Color4>& setting);
    wxTextCtrl& AddText(const wxString& label, const wxString& tooltip, const Setting_cls<wxString>& setting);
    /// A file's name with a button that looks for it.
    void AddFile(const wxString& label, const wxString& tooltip, const wxString& wildcard,
                 const Setting_cls<wxString>& setting);
    /// A window of the caller's in the place of the control; it must be a child of this page.
    void AddWindow(const wxString& label, wxWindow* window);
    /// A row of buttons in the place of the control.
    struct Button {
        wxString label;
        wxString tooltip;
        std::function<void()> press;
    };
    void AddButtons(const wxString& label, const std::vector<Button>& buttons);
    /// Called whenever the page shows its settings anew, e.g. to enable what has an effect.
    void AddRefresher(std::function<void()> refresher);

    /// Shows all settings as they are now.
    void RefreshFromModel();
    void ShowSettings(std::uint64_t) override { RefreshFromModel(); }

    /// A page that is too narrow is cut off at its right: squeezed controls cannot even draw their borders.
    bool Layout() override;

  protected:
    /// All of the page, so that a dialog shows it without scrolling where the screen allows.
    wxSize DoGetBestSize() const override;

  private:
    void AddLabel(const wxString& label);
    void AddControl(wxWindow* control, bool stretch);
    /// What the Tab key reaches comes into view.
    void ScrollTo(const wxWindow& control);
    /// The wheel scrolls the page and changes no control that happens to pass under the mouse.
    void ScrollByWheel(wxWindow& control);
    static void EnterText(wxTextCtrl& text, const Setting_cls<wxString>& setting);
    wxFlexGridSizer& Grid();

    wxBoxSizer* mColumn = nullptr;
    wxFlexGridSizer* mGrid = nullptr;
    /// Of the column; as wide as the widest, so that the controls of its groups stand below one another.
    std::vector<wxStaticText*> mLabels;
    std::vector<std::function<void()>> mRefreshers;
};
