#pragma once

#include <wx/window.h>

/// A bar that fills up from the left, in percent. Unlike the toolkit's own it is painted as it stands when it
/// is asked to, also where no event is taken. Threads: GUI thread.
class ProgressLine_cls : public wxWindow {
  public:
    ProgressLine_cls(wxWindow* parent, const wxSize& size);

    void SetValue(int percentage);

  private:
    int mPercentage = 0;
};
