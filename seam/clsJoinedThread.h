#pragma once

#include <wx/thread.h>

/// A thread made for one task and joined by whoever made it.
/// A class derived from it calls Join() in its own destructor, while what Entry() uses is still there.
/// Threads: Start() and Join() belong to the thread that made it.
class JoinedThread_cls : public wxThread {
  public:
    JoinedThread_cls() : wxThread(wxTHREAD_JOINABLE) {}

    /// False when the system has no thread to give.
    bool Start() {
        mIsJoinable = Run() == wxTHREAD_NO_ERROR;
        return mIsJoinable;
    }
    /// Returns when the thread has ended; at once when it was never started or is joined already.
    void Join() {
        if (mIsJoinable) Wait();
        mIsJoinable = false;
    }

  private:
    bool mIsJoinable = false;
};
