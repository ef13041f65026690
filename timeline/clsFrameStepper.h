#pragma once

/// A run of frames, both ends included.
struct FrameRange {
    int first = 0;
    int last = 0;
    bool operator==(const FrameRange&) const = default;
};

/// A place on the timeline: a frame and a sub-step of the way to the next one.
struct FramePlace {
    int frame = 0;
    int step = 0;
    bool operator==(const FramePlace&) const = default;
};

/// The rules by which frames follow one another.
/// A plain value made on the spot from the timeline's settings; the timeline's functions of the same names
/// fill in the current frame. Any numbers are good: frames below 0 count as 0, nothing overflows.
class FrameStepper_cls {
  public:
    struct Rules {
        int maxFrame = 0;    ///< last frame of the scene, at least 0
        int animStep = 1;    ///< frames from one shown frame to the next, at least 1
        int animInterp = 1;  ///< sub-steps of a frame, at least 1
        bool repeat = false;
        FrameRange range;  ///< what stepping with `clamp` is limited to, inside the scene
    };
    explicit FrameStepper_cls(const Rules& rules) : mRules(rules) {}

    /// The multiple of the anim step nearest to f, inside the scene.
    int RoundFrame(int f) const;
    /// f limited to the range, not truncated to a multiple of the anim step.
    int AdjustFrameByRange(int f) const;
    /// The frame `direction` anim steps on. Out of the scene at either end: forward to the last frame,
    /// backward to 0, or to the other end with `wrap` where playback repeats.
    int CalcNextFrame(int frame, int direction, bool clamp, bool wrap) const;
    /// The place a sub-step on. -1 means the last sub-step of the frame before, the number of sub-steps the
    /// first one of the frame after. The last frame of the scene, and of the range, is a bound without
    /// sub-steps behind it: a place past a bound is cut to the bound at sub-step 0, so playing arrives there
    /// and stays. Between the bounds sub-steps are left alone. A direction below 0 wraps as moving backward.
    FramePlace CalcNextFrameFromStep(int frame, int step, bool clamp, bool wrap, int direction = 1) const;

  private:
    long long Truncate(long long frame) const { return frame / mRules.animStep * mRules.animStep; }

    Rules mRules;
};
