#pragma once

#include <wx/frame.h>

#include <cstdint>

#include "gui/clsFrameContext.h"
#include "gui/clsFrameSink.h"
#include "gui/clsWindowMessage.h"

class wxNotebook;
class wxSplitterWindow;

/// The main window: view panels and a notebook of settings above, the timeline below, menus and status bar.
/// Owned by the toolkit; lives inside the life of what its context names. Threads: GUI thread.
class FrameMain_cls : public wxFrame {
  public:
    explicit FrameMain_cls(FrameContext_cls& context);
    ~FrameMain_cls() override;

    void OpenProject(const wxString& path);
    void OpenData(const wxString& path);

  private:
    void MakeParts();
    void OnPosted(wxCommandEvent& event);
    void OnUpdate(std::uint64_t updateBits);
    /// Tells every settings view among the windows.
    void ShowSettings(std::uint64_t updateBits);

    FrameContext_cls& mContext;
    FrameSink_cls mSink;
    WindowMessage_cls mMessage;
    int mObserver;
    wxSplitterWindow* mSplitter = nullptr;
    wxNotebook* mPages = nullptr;
};
