#pragma once

#include <atomic>
#include <memory>

#include "output/clsPicture.h"
#include "seam/clsJoinedThread.h"

/// Writes one frame into a pipe. Owned by Movie_cls, which joins it and owns the pipe.
/// Threads: everything is set before it starts; whether it failed is read after it has finished.
class ThreadWriteMovie_cls : public JoinedThread_cls {
  public:
    ThreadWriteMovie_cls(int pipe, std::shared_ptr<const Picture_cls> picture);
    ~ThreadWriteMovie_cls() override { Join(); }

    const std::atomic<bool>& GetFinished() const { return mFinished; }
    /// The reader has gone.
    bool IsFailed() const { return mFailed; }

  private:
    ExitCode Entry() override;

    const int mPipe;
    const std::shared_ptr<const Picture_cls> mPicture;
    bool mFailed = false;
    std::atomic<bool> mFinished{false};
};
