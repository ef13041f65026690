#pragma once

#include <wx/dialog.h>
#include <wx/filedlg.h>
#include <wx/modalhook.h>

#include <vector>

/// Knows which modal dialogs are open, native ones included. Made, asked and destroyed on the GUI thread.
class DialogWatch_cls : public wxModalDialogHook {
  public:
    DialogWatch_cls() { Register(); }

    bool IsOpen(const wxString& title) const { return !mTitles.empty() && mTitles.back() == title; }

  protected:
    int Enter(wxDialog* dialog) override {
        // A native file dialog keeps its title elsewhere.
        const auto* file = dynamic_cast<wxFileDialog*>(dialog);
        mTitles.push_back(file ? file->GetMessage() : dialog->GetTitle());
        return wxID_NONE;
    }
    void Exit(wxDialog*) override { mTitles.pop_back(); }

  private:
    std::vector<wxString> mTitles;
};
