#pragma once

#include <wx/dialog.h>

/// What a screen leaves for a window: its size less what the desktop's panels and window frames take.
namespace ScreenRoom {

/// `size`, or less where the screen of `window` has less. In pixels.
wxSize Limit(const wxWindow& window, const wxSize& size);

}  // namespace ScreenRoom

/// Lets dialogs that do not fit on the screen scroll, their buttons apart. The toolkit's own adapter makes
/// them as large as the screen, and the window's frame then pushes the buttons out of it.
/// Handed to the toolkit, which owns it. Threads: GUI thread.
class DialogAdapter_cls : public wxStandardDialogLayoutAdapter {
  public:
    bool DoLayoutAdaptation(wxDialog* dialog) override;
};
