#pragma once

#include <wx/modalhook.h>

#include <functional>
#include <vector>

class wxDialog;

/// The dialogs that the user must answer before anything else, the toolkit's own ones too. They stand on the
/// stack of whoever asks, as children of the main window: it must not end before they have returned.
/// Owned by the main window. Threads: GUI thread.
class ModalDialogs_cls : private wxModalDialogHook {
  public:
    /// `allGone` is called when the last of the dialogs that Cancel() ended returns: it is still on the
    /// stack.
    explicit ModalDialogs_cls(std::function<void()> allGone);
    ~ModalDialogs_cls() override;
    ModalDialogs_cls(const ModalDialogs_cls&) = delete;
    ModalDialogs_cls& operator=(const ModalDialogs_cls&) = delete;

    bool IsAnyOpen() const { return !mOpen.empty(); }
    /// Ends the dialogs as Escape does, the innermost first.
    void Cancel();

  private:
    int Enter(wxDialog* dialog) override;
    void Exit(wxDialog* dialog) override;

    const std::function<void()> mAllGone;
    std::vector<wxDialog*> mOpen;  ///< the innermost last; one may stand here twice
    bool mCancelled = false;
};
