#pragma once

#include <wx/process.h>
#include <wx/string.h>

#include <deque>
#include <memory>
#include <vector>

/// The program running once more, without a window, to save pictures: the window stays free, and what it
/// writes is what the command line writes. Paused, resumed and cancelled by signals; cancelling leaves whole
/// pictures only. The child ends with this object.
/// Owned by the dialog that shows it. Threads: GUI thread, with the event loop running.
class RenderProcess_cls {
  public:
    RenderProcess_cls() = default;
    ~RenderProcess_cls();
    RenderProcess_cls(const RenderProcess_cls&) = delete;
    RenderProcess_cls& operator=(const RenderProcess_cls&) = delete;

    /// False when the program cannot be started.
    bool Start(const wxString& program, const std::vector<wxString>& arguments);
    /// Takes what the child has said since the last call. Call it every now and then.
    void Poll();
    bool IsRunning() const { return mProcess && !mProcess->mEnded; }
    void Pause(bool paused);
    bool IsPaused() const { return mPaused; }
    void Cancel();
    bool IsCancelled() const { return mCancelled; }

    int GetDone() const { return mDone; }
    const wxString& GetFile() const { return mFile; }  ///< the last one that is complete
    /// The last words that were no progress, at most a few lines.
    wxString GetMessages() const;
    /// The child has ended, and well.
    bool IsDone() const { return mProcess && mProcess->mEnded && mProcess->mStatus == 0; }

  private:
    class Child_cls : public wxProcess {
      public:
        Child_cls() { Redirect(); }
        void OnTerminate(int pid, int status) override;

        bool mAlone = false;  ///< nobody waits: the object ends with the process
        bool mEnded = false;
        int mStatus = 0;
    };

    void Take(wxInputStream* stream, wxString& rest, bool progress);
    void TakeLine(const wxString& line);
    void Signal(int signal) const;

    std::unique_ptr<Child_cls> mProcess;
    long mPid = 0;
    bool mPaused = false;
    bool mCancelled = false;
    int mDone = 0;
    wxString mFile;
    wxString mErrorRest;
    wxString mOutputRest;
    std::deque<wxString> mMessages;
};
