#pragma once

#include <memory>

#include "timeline/clsFramePacer.h"
#include "timeline/clsMotionBlur.h"
#include "timeline/clsParamGroup.h"
#include "timeline/clsTimeHost.h"
#include "timeline/clsTimeSettings.h"

class LineStream_cls;

/// The timeline: which frame is shown, what time and which data it stands for, and how it moves on.
/// Owned by the core, which gives it at construction what it reaches above itself; it registers with
/// GCUndoList and writes the shared time of Parameters_cls.
///
/// Units: frames from 0 to the scene's last one; sub-steps from 0 to their number - 1; normalised time from 0
/// to 1 over the scene; data positions in snapshots with a fraction. A frame or sub-step of -1 means the
/// current one.
///
/// Setters come in two forms: ...Command() is a step of the undo list, none when nothing would change, and
/// ...Native() only sets. Both keep values inside their bounds: frames and areas in the scene, the ends of an
/// area in order, anim step and sub-steps at least 1.
///
/// Threads: GUI thread only. Failure: none; settings that make no sense are taken as the nearest that do.
class TimeCtrl_cls {
  public:
    static constexpr int kCurrent = -1;
    /// No sequence is longer, so no prefetch need be.
    static constexpr int kMaxPrefetch = 10000;

    explicit TimeCtrl_cls(TimeHost_cls host = {}, std::shared_ptr<const ParamHost_cls> paramHost = {});
    ~TimeCtrl_cls();
    TimeCtrl_cls(const TimeCtrl_cls&) = delete;
    TimeCtrl_cls& operator=(const TimeCtrl_cls&) = delete;

    const TimeSettings_cls& GetSettings() const { return mSettings; }
    int GetMaxFrame() const { return mSettings.GetMaxFrame(); }
    int GetFrame() const { return mPlace.frame; }
    int GetStep() const { return mPlace.step; }
    /// The group "Time" with its one component "Time Remap": data position over normalised time.
    ParamGroup_cls& GetRemapGroup() { return mRemapGroup; }
    int GetPrefetch() const { return mPrefetch; }
    const MotionBlur_cls& GetMotionBlur() const { return mMotionBlur; }
    void SetMotionBlur(int samples, float span);
    /// The sample whose offset the current frame's time includes; playback moves it by itself.
    void SetMotionBlurSample(int sample);

    // Mapping

    /// Normalised time, 0 in a scene without frames. The current frame's includes its motion-blur sample.
    double GetDoubleIndex(int frame = kCurrent, int step = kCurrent) const;
    /// Frame of a normalised time.
    int GetIndexFromDouble(double d) const;
    double GetDoubleIndexWAMin() const { return GetDoubleIndex(mSettings.GetWorkArea().first, 0); }
    double GetDoubleIndexWAMax() const { return GetDoubleIndex(mSettings.GetWorkArea().last, 0); }
    double GetDoubleIndexAAMin() const { return GetDoubleIndex(mSettings.GetActiveArea().first, 0); }
    double GetDoubleIndexAAMax() const { return GetDoubleIndex(mSettings.GetActiveArea().last, 0); }
    /// Data position, through the remap curve where that is on. Never below 0, not limited above.
    double GetRemappedIndexDouble(int frame = kCurrent, int step = kCurrent) const;
    /// Its snapshot number, without sub-step unless the frame is the current one.
    int GetRemappedIndex(int frame = kCurrent) const;
    /// Its fraction towards the next snapshot.
    double GetRemappedInterpStepDouble(int frame = kCurrent, int step = kCurrent) const;
    /// True when frames fall between snapshots as a rule, so data are interpolated even at whole ones.
    bool IsInterpolateAlways() const;
    /// Only every so many snapshots are shown; 1 where the remap curve decides.
    int GetSkippingStep() const { return mSettings.IsTimeRemap() ? 1 : mSettings.GetAnimStep(); }
    /// Tick spacing of the ruler for a length in frames.
    static int GetInterval(int length);

    // Stepping: see FrameStepper_cls

    int RoundFrame(int f) const { return GetStepper().RoundFrame(f); }
    int CalcNextFrame(int frame = kCurrent, int direction = 1, bool clamp = false, bool wrap = false) const;
    /// The current sub-step and the increment, limited to -1 (before the frame) and the number of sub-steps
    /// (behind it).
    int CalcNextStep(int increment) const;
    FramePlace CalcNextFrameFromStep(int frame, int step, bool clamp, bool wrap, int direction = 1) const;
    int AdjustFrameByRange(int f) const { return GetStepper().AdjustFrameByRange(f); }
    bool IsWorkingArea(int f) const;
    bool IsPlayConditionSatisfied(int f) const { return IsWorkingArea(f); }
    /// Another range than the work area limits stepping and playback until it is cleared.
    void SetCustomRegion(int first, int last);
    void ClearCustomRegion() { mHasCustomRegion = false; }

    // Playback: driven by the main window when idle

    /// The increment is the direction, and the sub-steps a round tries to go; 0 changes nothing.
    void StartPlay(int increment = 1);
    /// Shows the next sub-step or motion-blur sample when its time has come, waiting for that. False when
    /// nothing is played, or playback has come to its end.
    bool ProcPlaying();
    void ProcStopPlaying();
    /// Stops and goes to a frame.
    void StopAnimationAt(int frame);
    bool IsPlaying() const { return mPlaying; }
    int GetPlayIncrement() const { return mPlayIncrement; }
    FramePacer_cls& GetPacer() { return mPacer; }

    // Setters

    void SetValueCommand(TimeValue which, int value);
    void SetValueNative(TimeValue which, int value);
    int GetValue(TimeValue which);

    void SetFrameCommand(int v) { SetValueCommand(TimeValue::Frame, v); }
    void SetFrameNative(int v) { SetValueNative(TimeValue::Frame, v); }
    void SetStepCommand(int v) { SetValueCommand(TimeValue::Step, v); }
    void SetStepNative(int v) { SetValueNative(TimeValue::Step, v); }
    void SetWorkAreaMinCommand(int v) { SetValueCommand(TimeValue::WorkAreaMin, v); }
    void SetWorkAreaMinNative(int v) { SetValueNative(TimeValue::WorkAreaMin, v); }
    void SetWorkAreaMaxCommand(int v) { SetValueCommand(TimeValue::WorkAreaMax, v); }
    void SetWorkAreaMaxNative(int v) { SetValueNative(TimeValue::WorkAreaMax, v); }
    void SetActiveAreaMinCommand(int v) { SetValueCommand(TimeValue::ActiveAreaMin, v); }
    void SetActiveAreaMinNative(int v) { SetValueNative(TimeValue::ActiveAreaMin, v); }
    void SetActiveAreaMaxCommand(int v) { SetValueCommand(TimeValue::ActiveAreaMax, v); }
    void SetActiveAreaMaxNative(int v) { SetValueNative(TimeValue::ActiveAreaMax, v); }
    void SetRepeatCommand(bool v) { SetValueCommand(TimeValue::Repeat, v ? 1 : 0); }
    void SetRepeatNative(bool v) { SetValueNative(TimeValue::Repeat, v ? 1 : 0); }
    void SetAnimStepCommand(int v) { SetValueCommand(TimeValue::AnimStep, v); }
    void SetAnimStepNative(int v) { SetValueNative(TimeValue::AnimStep, v); }
    void SetAnimInterpCommand(int v) { SetValueCommand(TimeValue::AnimInterp, v); }
    void SetAnimInterpNative(int v) { SetValueNative(TimeValue::AnimInterp, v); }
    /// How many shown frames ahead are read while idle; not kept in projects.
    void SetPrefetchCommand(int v) { SetValueCommand(TimeValue::Prefetch, v); }
    void SetPrefetchNative(int v) { SetValueNative(TimeValue::Prefetch, v); }
    void SetMotionBlurCommand(bool on) { SetValueCommand(TimeValue::UseMotionBlur, on ? 1 : 0); }
    /// Switched on with a curve that nobody has drawn yet, the curve becomes the one that changes nothing:
    /// frame n shows snapshot n.
    void SetTimeRemapCommand(bool on);

    /// The active area becomes the whole scene.
    void ExpandAACommand();
    void SetFrameFromDoubleCommand(double d);
    /// By anim steps, by ten of them, to the next frame with a key; to sub-step 0. Backward below 0.
    void MoveFrameCommand(int direction);
    void MoveFrameCommandLarge(int direction);
    void MoveFrameCommandSnip(int direction);
    /// By one sub-step.
    void MoveInterpStepCommand(int direction);

    // Scene length

    /// What happens to keys, which are kept as fractions of the scene, when its length changes.
    enum class KeyRemap {
        DoNotRemap,  ///< "do not remap": keys stay at their fraction, the animation stretches with the scene
        DoRemap,     ///< "do remap": every key, the remap curve's too, stays at its frame
        KeyRemap  ///< "key remap": the remap curve is scaled with the scene, its keys' data positions by the
                  ///< same factor as their frames, so that data pass at the speed they had; other keys stay
                  ///< at their fraction
    };
    void SetMaxFrameCommand(int maxFrame, KeyRemap keys = KeyRemap::DoNotRemap);
    /// Leaves keys alone.
    void SetMaxFrameNative(int maxFrame);
    /// Multiplies all key times of the scene and of the remap curve, as a step of the undo list.
    void RemapParameterKeys(double factor);
    /// Areas that reached the old end of the scene reach the new one; everything comes to lie inside it.
    void CheckAfterMaxFrameChange(int oldMaxFrame);
    /// The work area inside the scene, its ends in order.
    void CheckWorkingArea();

    // What others show

    /// Tags the snapshots at the keys of all parameters. Done by itself after undoable changes of keys.
    void UpdateSnipping();
    void HideAndShowRemap() const;

    // Text

    wxString Serialize() const;
    /// Takes a settings line, or the block of the remap curve from its marker on; false for any other line.
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);

  private:
    friend class CommandSetTimeCtrlValue_cls;

    FrameStepper_cls GetStepper() const;
    FramePlace Resolve(int frame, int step) const;
    /// Sets a value as it is, with what follows from it at once. For commands, which restore states that
    /// were.
    void ApplyValue(TimeValue which, int value);
    int Limit(TimeValue which, int value) const;
    void PushValue(TimeValue which, int from, int to, bool alreadyDone);
    void GoTo(FramePlace place);
    void PublishTime() const;
    void KeepPlaceInside();

    Parameters_cls& GetRemapCurve() { return mRemapGroup.GetParameter(0); }
    void ForEachParameter(const std::function<void(Parameters_cls&)>& function);
    void RemapKeys(KeyRemap keys, int oldMaxFrame, int newMaxFrame);
    int FindFrameWithKey(int direction);

    const TimeHost_cls mHost;
    TimeSettings_cls mSettings;
    ParamGroup_cls mRemapGroup;
    FramePlace mPlace;
    int mPrefetch = 1;
    MotionBlur_cls mMotionBlur;

    bool mPlaying = false;
    int mPlayIncrement = 1;
    FramePacer_cls mPacer;

    bool mHasCustomRegion = false;
    FrameRange mCustomRegion;
    int mObserver = 0;
};
