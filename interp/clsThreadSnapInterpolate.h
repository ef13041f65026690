#pragma once

#include <atomic>
#include <functional>

#include "interp/clsWorkShares.h"
#include "seam/clsJoinedThread.h"

/// One worker of an evaluation stage. Made by RunAll(), which returns when all work is done.
/// Threads: the work is called from several threads at once, each time with other particles; it may only
/// write what belongs to these.
/// Failure: a thread that cannot be created ends the program with a message.
class ThreadSnapInterpolate_cls final : public JoinedThread_cls {
  public:
    using Work = std::function<void(int begin, int end)>;

    ThreadSnapInterpolate_cls(const Work& work, WorkShares_cls& shares, int worker)
        : mWork(work), mShares(shares), mWorker(worker) {}
    ~ThreadSnapInterpolate_cls() override { Join(); }

    ExitCode Entry() override;
    const std::atomic<bool>& GetDone() const { return mDone; }

    /// Does the work for the particles 0 to count - 1 with as many workers as the count asks for. The
    /// caller's thread is one of them; it waits for the others' last blocks only.
    static void RunAll(int count, const Work& work);
    static int GetWorkerNumber(int count);

  private:
    const Work& mWork;
    WorkShares_cls& mShares;
    const int mWorker;
    std::atomic<bool> mDone{false};
};
