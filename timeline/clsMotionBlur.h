#pragma once

#include <algorithm>
#include <cmath>

/// The samples within a sub-step that motion blur adds up.
/// Units: the span is a fraction of a sub-step; a sample's offset is a fraction of one too.
class MotionBlur_cls {
  public:
    static constexpr int kMaxSamples = 1024;

    int GetSample() const { return mSample; }
    int GetSamples() const { return mSamples; }
    /// Sample numbers below 1 count as 1; a span that is no finite number is left as it was.
    void Set(int samples, float span) {
        mSamples = std::clamp(samples, 1, kMaxSamples);
        if (std::isfinite(span)) mSpan = span;
        mSample = 0;
    }

    double GetOffset() const { return static_cast<double>(mSample) * mSpan / mSamples; }
    /// Samples beyond the last, or below 0, are the nearest.
    void SetSample(int sample) { mSample = std::clamp(sample, 0, mSamples - 1); }
    void Restart() { mSample = 0; }
    /// On to the next sample, backward for a direction below 0. True when it wrapped around: time for another
    /// sub-step.
    bool Advance(int direction) {
        mSample += direction < 0 ? -1 : 1;
        if (mSample >= 0 && mSample < mSamples) return false;
        mSample = direction < 0 ? mSamples - 1 : 0;
        return true;
    }

  private:
    int mSample = 0;
    int mSamples = 4;
    float mSpan = 1.0F;
};
