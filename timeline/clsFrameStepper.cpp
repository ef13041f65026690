#include "timeline/clsFrameStepper.h"

#include <algorithm>

// Frames may lie close to the largest int, so sums are made in 64 bits.

int FrameStepper_cls::RoundFrame(int f) const {
    const long long nearest = Truncate(std::max(f, 0) + static_cast<long long>(mRules.animStep / 2));
    return static_cast<int>(std::min(nearest, Truncate(mRules.maxFrame)));
}

int FrameStepper_cls::AdjustFrameByRange(int f) const {
    return std::clamp(f, mRules.range.first, mRules.range.last);
}

int FrameStepper_cls::CalcNextFrame(int frame, int direction, bool clamp, bool wrap) const {
    long long f = std::max(frame, 0) + static_cast<long long>(mRules.animStep) * direction;
    if (f < 0 || f > mRules.maxFrame) {
        const bool forward = direction >= 0;
        const bool around = wrap && mRules.repeat;
        f = forward == around ? 0 : mRules.maxFrame;
    }
    if (clamp) f = AdjustFrameByRange(static_cast<int>(f));
    return static_cast<int>(Truncate(f));
}

FramePlace FrameStepper_cls::CalcNextFrameFromStep(int frame, int step, bool clamp, bool wrap,
                                                   int direction) const {
    long long f = std::max(frame, 0);
    long long s = step;
    if (step < 0) {
        f -= mRules.animStep;
        s = mRules.animInterp - 1;
    } else if (step >= mRules.animInterp) {
        f += mRules.animStep;
        s = 0;
    }

    const bool forward = step >= 0 && direction >= 0;
    const bool around = wrap && mRules.repeat;
    const long long last = Truncate(mRules.maxFrame);
    const bool before = f < 0;
    f = Truncate(f);
    const auto isPast = [&](long long bound) { return f > bound || (f == bound && s > 0); };
    if (before) {
        f = !forward && around ? last : 0;
        s = 0;
    } else if (isPast(last)) {
        f = forward && around ? 0 : last;
        s = 0;
    }
    if (clamp) {
        // Frames are multiples of the anim step, so the bounds are too.
        const long long low = Truncate(mRules.range.first);
        const long long high = Truncate(mRules.range.last);
        if (f < low || isPast(high)) {
            f = std::clamp(f, low, high);
            s = 0;
        }
    }
    return {static_cast<int>(f), static_cast<int>(s)};
}
