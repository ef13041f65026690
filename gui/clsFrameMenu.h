#pragma once

#include <wx/event.h>
#include <wx/eventfilter.h>
#include <wx/string.h>

#include <functional>
#include <map>
#include <set>
#include <vector>

class wxFrame;
class wxMenu;
class wxMenuBar;

/// The menus of the main window, and the keys that do the same. Keys without Ctrl work while no field is
/// being typed into; menus only name them. Owned by the main window. Threads: GUI thread.
class FrameMenu_cls : private wxEventFilter {
  public:
    /// One entry of a menu.
    struct Entry {
        wxString label;  ///< with "&"; with an accelerator behind a tab
        wxString help;   ///< for the status bar
        std::function<void()> action;
        /// Empty: always.
        std::function<bool()> isEnabled{};
        /// For a check or radio mark; empty: none.
        std::function<bool()> isChecked{};
        /// The label as it is now; empty: as made.
        std::function<wxString()> getLabel{};
        /// A key without Ctrl; 0: none.
        int key = 0;
    };

    explicit FrameMenu_cls(wxFrame& frame);
    ~FrameMenu_cls() override;
    FrameMenu_cls(const FrameMenu_cls&) = delete;
    FrameMenu_cls& operator=(const FrameMenu_cls&) = delete;

    /// Appends a menu with these entries; one without an action is a separator.
    wxMenu& Add(const wxString& title, const std::vector<Entry>& entries);
    /// Puts the bar into the frame.
    void Finish();

  private:
    void OnKey(wxKeyEvent& event);
    /// While a menu is open its keys are for no window of the program.
    int FilterEvent(wxEvent& event) override;

    wxFrame& mFrame;
    wxMenuBar* mBar;
    std::map<int, Entry> mKeys;
    std::set<const wxMenu*> mOpen;
};
