#include "render/clsSortThread.h"

#include "seam/clsClock.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr int kPollMilliseconds = 5;

}  // namespace

wxThread::ExitCode SortThread_cls::Entry() {
    Work();
    mDone.store(true, std::memory_order_release);
    return nullptr;
}

void SortThread_cls::RunAll(std::initializer_list<SortThread_cls*> workers) {
    SortThread_cls* own = *(workers.end() - 1);
    for (SortThread_cls* worker : workers) {
        if (worker != own && !worker->Start()) MsgBoxExit("Can't create thread", "Error!");
    }
    own->Entry();
    for (SortThread_cls* worker : workers) PollUntil(worker->mDone, kPollMilliseconds);
    // What a worker is made of must not go before its thread.
    for (SortThread_cls* worker : workers) worker->Join();
}
