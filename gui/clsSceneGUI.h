#pragma once

#include <wx/dialog.h>

#include "gui/clsEntryGrid.h"

class TimeCtrl_cls;
class wxRadioButton;

/// The scene dialog: "Scene Length", "Work Area", and what happens to keys when the length changes. OK makes
/// one step of the undo list. Modal; made on the spot. Threads: GUI thread. Units: frames. Failure: a wrong
/// entry is marked beside its field, and the dialog stays.
class SceneGUI_cls : public wxDialog {
  public:
    /// `snapshots` is the number of snapshots that are open, 0 for none.
    SceneGUI_cls(wxWindow* parent, TimeCtrl_cls& timeCtrl, int snapshots);

    /// Makes the change; true when every entry was good.
    bool Apply();

  private:
    void AddDataButton(wxSizer& sizer, int snapshots);
    wxRadioButton* AddChoice(wxSizer& sizer, const wxString& label, const wxString& meaning,
                             bool first = false);
    void Accept();

    TimeCtrl_cls& mTimeCtrl;
    EntryGrid_cls mGrid;
    EntryGrid_cls::Entry* mLength;
    EntryGrid_cls::Entry* mFirst;
    EntryGrid_cls::Entry* mLast;
    wxRadioButton* mDoNotRemap = nullptr;
    wxRadioButton* mDoRemap = nullptr;
    wxRadioButton* mKeyRemap = nullptr;
};
