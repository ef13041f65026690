#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/clsWindowSession.h"
#include "gui/clsFrameMain.h"
#include "support/gui/User.h"

/// The program's main window for one test, as `varnholt3 ARGUMENTS` opens it; closed with the object without
/// asking. Without `--config` no configuration is read or written. Made and destroyed on the test's thread.
class OpenWindow_cls {
  public:
    explicit OpenWindow_cls(const std::vector<std::string>& arguments = {});
    ~OpenWindow_cls();
    OpenWindow_cls(const OpenWindow_cls&) = delete;
    OpenWindow_cls& operator=(const OpenWindow_cls&) = delete;

    /// On the GUI thread.
    Main_cls& Main() { return mSession->GetMain(); }
    FrameContext_cls& Context() { return mSession->GetContext(); }
    /// On the GUI thread. Null when it has been closed.
    FrameMain_cls* Frame() { return mSession->GetFrame(); }

  private:
    std::unique_ptr<WindowSession_cls> mSession;
};
