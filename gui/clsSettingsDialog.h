#pragma once

#include <wx/dialog.h>

#include <functional>

/// A window around one page of settings that stays open beside the main window and blocks nothing: what is
/// changed in it acts at once. Escape or Close closes it; Ctrl+Z
/// and Ctrl+Shift+Z work as in the main window. There is one of each title.
/// Owned by its parent window. Threads: GUI thread.
class SettingsDialog_cls : public wxDialog {
  public:
    using Make = std::function<wxWindow*(wxWindow* parent)>;

    /// Makes the dialog, or shows the one with this title again. Its page is told to show its settings.
    static SettingsDialog_cls& Open(wxWindow& parent, const wxString& title, const Make& make);

    wxWindow& GetPage() { return *mPage; }

  private:
    SettingsDialog_cls(wxWindow& parent, const wxString& title, const Make& make);
    void OnKey(wxKeyEvent& event);

    wxWindow* mPage;
};
