#include "timeline/clsFramePacer.h"

#include "seam/clsClock.h"

void FramePacer_cls::Restart() {
    mLastShown = Clock_cls::Current().Now();
}

long long FramePacer_cls::GetRemaining() const {
    return kInterval - (Clock_cls::Current().Now() - mLastShown);
}

void FramePacer_cls::WaitForNext() {
    PollUntil([this] { return GetRemaining() <= 0; }, kPollMs);
    Restart();
}
