#include "gui/clsModalDialogs.h"

#include <dlfcn.h>
#include <wx/dialog.h>

#include <utility>

namespace {

/// Closes a message of the desktop's own, which the toolkit has no way to end. The desktop's library is there
/// with the toolkit, though none of its headers need be.
bool EndNative(const wxDialog& dialog) {
    using Respond = void (*)(void* dialog, int response);
    constexpr int kClosed = -4;
    const auto respond = reinterpret_cast<Respond>(dlsym(RTLD_DEFAULT, "gtk_dialog_response"));
    if (!respond || !dialog.GetHandle()) return false;
    respond(dialog.GetHandle(), kClosed);
    return true;
}

}  // namespace

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
        if (dialog->IsModal()) {
            dialog->EndModal(wxID_CANCEL);
        } else if (!EndNative(*dialog)) {
            break;
        }
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
