#include "seam/clsClock.h"

#include <wx/utils.h>

#include <chrono>
#include <thread>

std::atomic<Clock_cls*> GpCClock{nullptr};

long long Clock_cls::Now() {
    using std::chrono::duration_cast, std::chrono::milliseconds, std::chrono::steady_clock;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void Clock_cls::Sleep(int milliseconds) {
    wxMilliSleep(static_cast<unsigned long>(milliseconds));
}

Clock_cls& Clock_cls::Current() {
    static Clock_cls system;
    Clock_cls* other = GpCClock.load(std::memory_order_acquire);
    return other ? *other : system;
}

void PollUntil(const std::function<bool()>& condition, int periodMs,
               const std::function<void(int round)>& eachRound) {
    for (int round = 1; !condition(); ++round) {
        Clock_cls::Current().Sleep(periodMs);
        if (eachRound) eachRound(round);
    }
}

void PollUntil(const std::atomic<bool>& flag, int periodMs) {
    using std::chrono::steady_clock;
    const auto isSet = [&flag] { return flag.load(std::memory_order_acquire); };
    // Work that is about to end is not worth a sleep that outlasts it.
    const auto soon = steady_clock::now() + std::chrono::microseconds(200);
    while (!isSet() && steady_clock::now() < soon) std::this_thread::yield();
    PollUntil(isSet, periodMs);
}
