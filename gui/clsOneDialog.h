#pragma once

#include <wx/window.h>

/// Dialogs that stay open beside the main window: there is one of each class and title. Threads: GUI thread.
namespace OneDialog {

/// Shows, in front, the dialog that the parent has already, or the one that `make` returns. The parent owns
/// it.
template <class Dialog, class Make>
Dialog& Show(wxWindow& parent, const wxString& title, const Make& make) {
    Dialog* dialog = nullptr;
    for (wxWindow* child : parent.GetChildren()) {
        auto* candidate = dynamic_cast<Dialog*>(child);
        if (candidate && candidate->GetTitle() == title) dialog = candidate;
    }
    if (!dialog) dialog = make();
    dialog->Show();
    dialog->Raise();
    return *dialog;
}

}  // namespace OneDialog
