#pragma once

#include <wx/dnd.h>

#include <functional>
#include <utility>

/// Takes files that are dropped on a window, and opens the first. Owned by the window it is given to.
/// Threads: GUI thread.
class FileDrop_cls : public wxFileDropTarget {
  public:
    using Open = std::function<void(const wxString& file)>;
    explicit FileDrop_cls(Open open) : mOpen(std::move(open)) {}

    bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) override {
        if (files.empty()) return false;
        mOpen(files[0]);
        return true;
    }

  private:
    const Open mOpen;
};
