#include "output/clsPictureQueue.h"

#include <algorithm>
#include <utility>

#include "seam/clsClock.h"
#include "seam/clsUserMessage.h"

namespace {
constexpr int kQueuePeriodMs = 2;
}

PictureQueue_cls::PictureQueue_cls(int threads, Report report)
    : mThreads(static_cast<size_t>(std::max(threads, 1))), mReport(std::move(report)) {}

void PictureQueue_cls::Push(const wxString& path, std::shared_ptr<const Picture_cls> picture) {
    Collect(false);
    while (mRunning.size() >= mThreads) ReportOldest();
    mRunning.push_back(std::make_unique<ThreadWritePicture_cls>(path, std::move(picture)));
    if (!mRunning.back()->Start()) MsgBoxExit("Can't create thread", "Error!");
}

void PictureQueue_cls::Collect(bool all) {
    while (!mRunning.empty() && (all || mRunning.front()->GetFinished().load(std::memory_order_acquire)))
        ReportOldest();
}

void PictureQueue_cls::ReportOldest() {
    const auto oldest = std::move(mRunning.front());
    mRunning.pop_front();
    PollUntil(oldest->GetFinished(), kQueuePeriodMs);
    oldest->Join();
    mReport(oldest->GetPath(), oldest->GetError());
}
