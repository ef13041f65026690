#pragma once

#include <wx/string.h>

#include <atomic>
#include <vector>

#include "seam/clsJoinedThread.h"
#include "seam/clsShellCommand.h"

class PovRayCtrl_cls;

/// Runs the renderer for one picture, and what is to be run after it, in the working directory.
/// Made for one picture and owned by the controller, which writes all files before it starts the thread.
/// Threads: a worker; it touches nothing of the program but the done flag and the event that it posts.
/// Failure: none is judged here; the status is printed and kept.
class ThreadPovRay_cls : public JoinedThread_cls {
  public:
    ~ThreadPovRay_cls() override {
        Abort();
        Join();
    }

    /// Before Start(). An empty post-scene command is not run. The flag outlives the thread.
    void SetParameters(const PovRayCtrl_cls& control, const wxString& command,
                       const wxString& postSceneCommand, std::atomic<bool>* done);
    /// Where the renderer's own words go; before Start(). Without: the program's standard error.
    void SetLog(const wxString& path) { mShell.SetLog(path); }
    /// The renderer uses these processors only; before Start().
    void SetProcessors(const std::vector<int>& processors) { mShell.SetProcessors(processors); }

    /// Ends the renderer; the thread then ends soon.
    void Abort() { mShell.Stop(); }
    bool IsAborted() const { return mShell.IsStopped(); }
    /// The renderer's result, once the done flag is set.
    int GetResult() const { return mResult; }

  protected:
    ExitCode Entry() override;

  private:
    ShellCommand_cls mShell;
    wxString mCommand;
    wxString mPostSceneCommand;
    std::atomic<bool>* mDone = nullptr;
    int mResult = 0;
};
