#include "data/clsBodyProgress.h"

#include "seam/clsEventSink.h"

std::atomic<int> GThreadReaderPercentage{0};
std::atomic<bool> GbThreadReaderAbandoned{false};

void BodyProgress_cls::Add(int particles) {
    const long long before = mDone.fetch_add(particles, std::memory_order_relaxed);
    const long long now = before + particles;
    if (before / mStep == now / mStep && now < mCount) return;
    const int percentage = static_cast<int>(now * 100 / mCount);
    // A thread that is overtaken here must not turn the percentage back.
    int shown = GThreadReaderPercentage.load(std::memory_order_relaxed);
    while (shown < percentage &&
           !GThreadReaderPercentage.compare_exchange_weak(shown, percentage, std::memory_order_relaxed)) {
    }
    EventSink_cls::PostToFrame(EventSink_cls::kRefreshStatus);
}
