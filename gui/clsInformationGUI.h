#pragma once

#include <wx/dialog.h>

#include "data/clsInformation.h"
#include "gui/clsSettingsView.h"

class wxListCtrl;
struct FrameContext_cls;

/// Shows what there is to know about the data and the frame, and follows both while it is open. Blocks
/// nothing. Owned by its parent window. Threads: GUI thread.
class InformationGUI_cls : public wxDialog, public SettingsView_cls {
  public:
    InformationGUI_cls(wxWindow* parent, const Information_cls& information);
    void ShowSettings(std::uint64_t updateBits) override;

  private:
    void Fill(wxListCtrl& list, const std::vector<Information_cls::Row>& rows);

    const Information_cls mInformation;
    wxListCtrl* mData;
    wxListCtrl* mFrame;
};

/// Opens the dialog, or brings the one that is open to the front.
void OpenInformation(wxWindow* parent, FrameContext_cls& context);
