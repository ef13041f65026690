#pragma once

#include <wx/string.h>

#include <deque>
#include <functional>
#include <optional>

#include "gui/clsNumberLimits.h"

class wxDialog;
class wxFlexGridSizer;
class wxSizer;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

/// Rows of a dialog that is ended by OK: label, entry, and at the right the place where a wrong entry is
/// marked. Made by the dialog, which owns the controls. Threads: GUI thread.
class EntryGrid_cls {
  public:
    /// `accept` is what the Enter key in an entry does.
    EntryGrid_cls(wxDialog& dialog, std::function<void()> accept);

    struct Entry {
        wxTextCtrl* text;
        wxStaticText* mark;
        wxString before;
    };
    /// A number to be entered; without one the field begins empty, and may be left so.
    Entry& AddNumber(const wxString& label, const wxString& tip, std::optional<double> value);
    /// A row with another control.
    void AddControl(const wxString& label, wxWindow& control);
    wxSizer* GetSizer() const;

    /// The number, if the entry was changed and is one. A wrong entry is marked until it is changed.
    std::optional<double> Read(Entry& entry, const NumberLimits_cls& limits);
    /// True when nothing was marked since the last call.
    bool TakeGood();

  private:
    void Mark(Entry& entry, const NumberLimits_cls& limits, bool wrong);

    wxDialog& mDialog;
    const std::function<void()> mAccept;
    wxFlexGridSizer* mGrid;
    std::deque<Entry> mEntries;
    bool mGood = true;
};
