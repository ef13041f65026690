#pragma once

#include <wx/statusbr.h>

struct FrameContext_cls;

/// The status bar: what is being read and how far, frame and data time, particles drawn, memory.
/// Owned by the main window. Threads: GUI thread.
class FrameStatus_cls : public wxStatusBar {
  public:
    FrameStatus_cls(wxWindow* parent, const FrameContext_cls& context);

    void RefreshFromModel();

  private:
    void Put(int field, const wxString& text);
    wxString Reading() const;
    wxString Instant() const;
    wxString Drawn() const;
    wxString Memory() const;

    const FrameContext_cls& mContext;
};
