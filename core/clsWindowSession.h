#pragma once

#include <wx/string.h>
#include <wx/weakref.h>

#include <memory>

#include "core/clsCommandLine.h"
#include "core/clsMain.h"
#include "core/clsPovExport.h"
#include "gui/clsFrameContext.h"

class FrameMain_cls;

/// One run of the program in a window: the application core, the main window over it, and what the command
/// line asks for. The window may be closed, and is then gone, before the session ends. Threads: GUI thread,
/// with the toolkit initialised.
class WindowSession_cls {
  public:
    WindowSession_cls(const CommandLine_cls& line, const wxString& programFolder);
    ~WindowSession_cls();
    WindowSession_cls(const WindowSession_cls&) = delete;
    WindowSession_cls& operator=(const WindowSession_cls&) = delete;

    /// Shows the window and opens what the command line names. False, after a message on standard error, for
    /// a setting that cannot be.
    bool Open();

    Main_cls& GetMain() { return mMain; }
    FrameContext_cls& GetContext() { return mContext; }
    /// Null when it has been closed.
    FrameMain_cls* GetFrame() { return mFrame.get(); }

  private:
    FrameContext_cls MakeContext();

    const CommandLine_cls mLine;
    Main_cls mMain;
    PovExport_cls mPovExport;
    FrameContext_cls mContext;
    wxWeakRef<FrameMain_cls> mFrame;
};
