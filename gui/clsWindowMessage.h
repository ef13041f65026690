#pragma once

#include "seam/clsUserMessage.h"

class wxWindow;

/// Tells and asks by message boxes over the main window. Owned by the window. Threads: GUI thread; from
/// another one the words go to standard error, as without a window.
class WindowMessage_cls : public UserMessage_cls {
  public:
    explicit WindowMessage_cls(wxWindow& parent);
    ~WindowMessage_cls() override;
    WindowMessage_cls(const WindowMessage_cls&) = delete;
    WindowMessage_cls& operator=(const WindowMessage_cls&) = delete;

    Answer Show(const wxString& title, const wxString& text, Buttons buttons) override;

  private:
    wxWindow& mParent;
};
