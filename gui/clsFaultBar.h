#pragma once

#include <wx/infobar.h>

#include <vector>

/// A line over the views that tells what is wrong with data files, without stopping anything. Owned by the
/// main window. Threads: GUI thread.
class FaultBar_cls : public wxInfoBar {
  public:
    explicit FaultBar_cls(wxWindow* parent) : wxInfoBar(parent) {}

    /// Shows the first of these lines and how many follow.
    void Tell(const std::vector<wxString>& lines);
};
