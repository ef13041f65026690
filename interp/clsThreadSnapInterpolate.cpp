#include "interp/clsThreadSnapInterpolate.h"

#include <deque>

#include "seam/clsClock.h"
#include "seam/clsUserMessage.h"

namespace {

/// Particles that a worker takes at a time: their arrays stay in the processor's cache.
constexpr int kEvaluationBlock = 4096;
constexpr int kPollMilliseconds = 3;

}  // namespace

wxThread::ExitCode ThreadSnapInterpolate_cls::Entry() {
    int begin = 0;
    int end = 0;
    while (mShares.Take(mWorker, &begin, &end)) {
        mWork(begin, end);
        Clock_cls::Current().Breathe();
    }
    mDone.store(true, std::memory_order_release);
    return nullptr;
}

int ThreadSnapInterpolate_cls::GetWorkerNumber(int count) {
    int workers = 1;
    for (const int most : {100000, 1000000, 10000000}) {
        if (count > most) ++workers;
    }
    return workers;
}

void ThreadSnapInterpolate_cls::RunAll(int count, const Work& work) {
    WorkShares_cls shares(count, GetWorkerNumber(count), kEvaluationBlock);
    std::deque<ThreadSnapInterpolate_cls> workers;
    for (int w = 0; w + 1 < shares.GetWorkers(); ++w) {
        workers.emplace_back(work, shares, w);
        if (!workers.back().Start()) MsgBoxExit("Can't create thread", "Error!");
    }
    // The last worker is this thread, so a small snapshot costs no other.
    ThreadSnapInterpolate_cls(work, shares, shares.GetWorkers() - 1).Entry();
    for (const ThreadSnapInterpolate_cls& worker : workers) PollUntil(worker.GetDone(), kPollMilliseconds);
}
