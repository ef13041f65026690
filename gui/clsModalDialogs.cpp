#include "gui/clsModalDialogs.h"

#include <wx/dialog.h>

#include <utility>

ModalDialogs_cls::ModalDialogs_cls(std::function<void()> allGone) : mAllGone(std::move(allGone)) {
    Register();
}

ModalDialogs_cls::~ModalDialogs_cls() {
    Unregister();
}

void ModalDialogs_cls::Cancel() {
    wxDialog* last = nullptr;
    for (size_t i = mOpen.size(); i-- > 0;) {
        wxDialog* dialog = mOpen[i];
        if (dialog == last) continue;
        if (!dialog->IsModal()) break;
        dialog->EndModal(wxID_CANCEL);
        mCancelled = true;
        last = dialog;
    }
}

int ModalDialogs_cls::Enter(wxDialog* dialog) {
    mOpen.push_back(dialog);
    return wxID_NONE;  // it is shown
}

void ModalDialogs_cls::Exit(wxDialog*) {
    if (!mOpen.empty()) mOpen.pop_back();
    if (!mOpen.empty() || !std::exchange(mCancelled, false)) return;
    mAllGone();
}
