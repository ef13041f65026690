#include "timeline/clsTimeCtrl.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "seam/clsLineStream.h"
#include "timeline/clsCommandSetTimeCtrlValue.h"
#include "timeline/clsParamEdit.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr int kLargeMove = 10;
constexpr const char* kRemapMarker = "---TimeRemap";

/// Truncated, and kept inside what an int holds; 0 for no number.
int Truncated(double value) {
    constexpr double kLargest = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, -kLargest, kLargest));
}

}  // namespace

TimeCtrl_cls::TimeCtrl_cls(TimeHost_cls host, std::shared_ptr<const ParamHost_cls> paramHost)
    : mHost(std::move(host)), mRemapGroup("Time", 1, {"Time Remap"}, "Time", true, std::move(paramHost)) {
    PublishTime();
    mObserver = GCUndoList.AddObserver([this](std::uint64_t bits) {
        if (bits & CommandItem_cls::kUpdateKeys) UpdateSnipping();
    });
}

TimeCtrl_cls::~TimeCtrl_cls() {
    GCUndoList.RemoveObserver(mObserver);
}

void TimeCtrl_cls::PublishTime() const {
    Parameters_cls::SetFrameNumber(GetMaxFrame(), mSettings.GetAnimInterp());
    Parameters_cls::msCurrentDoubleIndex = GetDoubleIndex();
}

void TimeCtrl_cls::KeepPlaceInside() {
    if (mPlace.frame > GetMaxFrame()) mPlace = {GetMaxFrame(), 0};
    mPlace.step = std::min(mPlace.step, mSettings.GetAnimInterp() - 1);
    PublishTime();
}

void TimeCtrl_cls::SetMotionBlur(int samples, float span) {
    mMotionBlur.Set(samples, span);
    PublishTime();
}

void TimeCtrl_cls::SetMotionBlurSample(int sample) {
    mMotionBlur.SetSample(sample);
    PublishTime();
}

// Mapping

FramePlace TimeCtrl_cls::Resolve(int frame, int step) const {
    return {frame == kCurrent ? mPlace.frame : frame, step == kCurrent ? mPlace.step : step};
}

double TimeCtrl_cls::GetDoubleIndex(int frame, int step) const {
    const int maxFrame = GetMaxFrame();
    if (maxFrame == 0) return 0.0;
    const FramePlace place = Resolve(frame, step);
    const double divisions = mSettings.GetAnimInterp();
    const double d = (place.frame + place.step / divisions) / maxFrame;
    const bool blurred = frame == kCurrent && mSettings.IsMotionBlur();
    return blurred ? d + mMotionBlur.GetOffset() / divisions / maxFrame : d;
}

int TimeCtrl_cls::GetIndexFromDouble(double d) const {
    const int maxFrame = GetMaxFrame();
    return maxFrame == 0 ? 0 : Truncated(maxFrame * d + 0.1);
}

double TimeCtrl_cls::GetRemappedIndexDouble(int frame, int step) const {
    double position = 0.0;
    if (mSettings.IsTimeRemap()) {
        position =
            mRemapGroup.GetParameter(0).Evaluate(GetDoubleIndex(frame, step), Parameters_cls::msResolution);
        if (!std::isfinite(position)) position = 0.0;
        // What falls just short of a snapshot by rounding is that snapshot, not almost the whole way to it.
        if (position - std::floor(position) > 0.99999) position = std::floor(position + 0.00001);
    } else {
        const FramePlace place = Resolve(frame, step);
        position = place.frame + static_cast<double>(place.step) / mSettings.GetAnimInterp();
    }
    return std::max(0.0, position);
}

int TimeCtrl_cls::GetRemappedIndex(int frame) const {
    return Truncated(GetRemappedIndexDouble(frame, frame == kCurrent ? kCurrent : 0));
}

double TimeCtrl_cls::GetRemappedInterpStepDouble(int frame, int step) const {
    const double position = GetRemappedIndexDouble(frame, step);
    return position - std::floor(position);
}

bool TimeCtrl_cls::IsInterpolateAlways() const {
    return mSettings.GetAnimInterp() > 1 || mSettings.IsTimeRemap() || mSettings.IsMotionBlur();
}

int TimeCtrl_cls::GetInterval(int length) {
    if (length > 1000) return 10;
    if (length > 500) return 5;
    return length > 200 ? 2 : 1;
}

// Stepping

FrameStepper_cls TimeCtrl_cls::GetStepper() const {
    const int maxFrame = GetMaxFrame();
    const FrameRange custom = {std::min(mCustomRegion.first, maxFrame),
                               std::min(mCustomRegion.last, maxFrame)};
    return FrameStepper_cls({.maxFrame = maxFrame,
                             .animStep = mSettings.GetAnimStep(),
                             .animInterp = mSettings.GetAnimInterp(),
                             .repeat = mSettings.IsRepeat(),
                             .range = mHasCustomRegion ? custom : mSettings.GetWorkArea()});
}

int TimeCtrl_cls::CalcNextFrame(int frame, int direction, bool clamp, bool wrap) const {
    return GetStepper().CalcNextFrame(Resolve(frame, 0).frame, direction, clamp, wrap);
}

int TimeCtrl_cls::CalcNextStep(int increment) const {
    const long long next = static_cast<long long>(mPlace.step) + increment;
    return static_cast<int>(std::clamp<long long>(next, -1, mSettings.GetAnimInterp()));
}

FramePlace TimeCtrl_cls::CalcNextFrameFromStep(int frame, int step, bool clamp, bool wrap,
                                               int direction) const {
    return GetStepper().CalcNextFrameFromStep(Resolve(frame, 0).frame, step, clamp, wrap, direction);
}

bool TimeCtrl_cls::IsWorkingArea(int f) const {
    const FrameRange area = mSettings.GetWorkArea();
    return area.first <= f && f <= area.last;
}

void TimeCtrl_cls::SetCustomRegion(int first, int last) {
    mHasCustomRegion = true;
    mCustomRegion = {std::max(0, std::min(first, last)), std::max({0, first, last})};
}

// Playback

void TimeCtrl_cls::StartPlay(int increment) {
    if (increment == 0) return;
    mPlaying = true;
    mPlayIncrement = increment;
    mMotionBlur.Restart();
    mPacer.Restart();
    CommandItem_cls::UpdateBit(CommandItem_cls::kUpdateTimeline);
    GCUndoList.ExecUpdate();
}

bool TimeCtrl_cls::ProcPlaying() {
    if (!mPlaying) return false;

    // The samples of a sub-step come one after another, and then the next sub-step.
    const bool sameStep = mSettings.IsMotionBlur() && !mMotionBlur.Advance(mPlayIncrement);
    FramePlace next = mPlace;
    if (!sameStep) {
        next = CalcNextFrameFromStep(kCurrent, CalcNextStep(mPlayIncrement), true, true, mPlayIncrement);
        if (next == mPlace) {
            ProcStopPlaying();
            return false;
        }
    }

    mPacer.WaitForNext();
    mPlace = next;
    PublishTime();
    CommandItem_cls::UpdateBit(CommandItem_cls::kUpdateTime);
    GCUndoList.ExecUpdate();
    if (mHost.refreshViews) mHost.refreshViews();
    return true;
}

void TimeCtrl_cls::ProcStopPlaying() {
    mPlaying = false;
    // A frame that stands still is shown, and keyed, at its own time and not at a sample's.
    mMotionBlur.Restart();
    PublishTime();
    CommandItem_cls::UpdateBit(CommandItem_cls::kUpdateTimeline | CommandItem_cls::kUpdateTime);
    GCUndoList.ExecUpdate();
}

void TimeCtrl_cls::StopAnimationAt(int frame) {
    mPlace = {Limit(TimeValue::Frame, frame), 0};
    CommandItem_cls::UpdateBit(CommandItem_cls::kUpdateRedraw);
    ProcStopPlaying();
}

// Setters

int TimeCtrl_cls::GetValue(TimeValue which) {
    switch (which) {
        case TimeValue::Frame:
            return mPlace.frame;
        case TimeValue::Step:
            return mPlace.step;
        case TimeValue::Prefetch:
            return mPrefetch;
        default:
            return mSettings.Get(which);
    }
}

void TimeCtrl_cls::ApplyValue(TimeValue which, int value) {
    switch (which) {
        case TimeValue::Frame:
            mPlace.frame = value;
            break;
        case TimeValue::Step:
            mPlace.step = value;
            break;
        case TimeValue::Prefetch:
            mPrefetch = value;
            break;
        default:
            mSettings.Set(which, value);
    }
    if (which == TimeValue::UseTimeRemap) HideAndShowRemap();
    if (which == TimeValue::UseMotionBlur) mMotionBlur.Restart();
    if (which == TimeValue::AnimInterp) KeepPlaceInside();
    PublishTime();
}

int TimeCtrl_cls::Limit(TimeValue which, int value) const {
    switch (which) {
        case TimeValue::Frame:
            return std::clamp(value, 0, GetMaxFrame());
        case TimeValue::Step:
            return std::clamp(value, 0, mSettings.GetAnimInterp() - 1);
        case TimeValue::WorkAreaMin:
            return std::clamp(value, 0, mSettings.GetWorkArea().last);
        case TimeValue::WorkAreaMax:
            return std::clamp(value, mSettings.GetWorkArea().first, GetMaxFrame());
        case TimeValue::ActiveAreaMin:
            return std::clamp(value, 0, mSettings.GetActiveArea().last);
        case TimeValue::ActiveAreaMax:
            return std::clamp(value, mSettings.GetActiveArea().first, GetMaxFrame());
        case TimeValue::AnimStep:
        case TimeValue::AnimInterp:
            return std::max(value, 1);
        case TimeValue::Prefetch:
            return std::clamp(value, 0, kMaxPrefetch);
        case TimeValue::Repeat:
        case TimeValue::UseTimeRemap:
        case TimeValue::UseMotionBlur:
            return value != 0 ? 1 : 0;
        case TimeValue::MaxFrame:
        case TimeValue::SceneLengthType:
            return std::max(value, 0);
    }
    return value;
}

void TimeCtrl_cls::PushValue(TimeValue which, int from, int to, bool alreadyDone) {
    if (from == to) return;
    GCUndoList.PushNewCommand(std::make_unique<CommandSetTimeCtrlValue_cls>(*this, which, to),
                              std::make_unique<CommandSetTimeCtrlValue_cls>(*this, which, from));
    if (alreadyDone) {
        GCUndoList.SkipCurrent();
    } else {
        GCUndoList.ExecCurrent();
    }
}

void TimeCtrl_cls::SetValueCommand(TimeValue which, int value) {
    if (which == TimeValue::MaxFrame) {
        SetMaxFrameCommand(value);
    } else if (which == TimeValue::UseTimeRemap) {
        SetTimeRemapCommand(value != 0);
    } else {
        PushValue(which, GetValue(which), Limit(which, value), false);
    }
}

void TimeCtrl_cls::SetValueNative(TimeValue which, int value) {
    if (which == TimeValue::MaxFrame) {
        SetMaxFrameNative(value);
    } else {
        ApplyValue(which, Limit(which, value));
    }
}

void TimeCtrl_cls::SetTimeRemapCommand(bool on) {
    if (on == mSettings.IsTimeRemap()) return;
    const UndoBlock_cls block("Time Remap");
    Parameters_cls::State asMade;
    asMade.keys.emplace_back();
    asMade.timeDependent = true;
    if (on && GetRemapCurve().GetState() == asMade) {
        ParamEdit_cls(GetRemapCurve()).Change("Time Remap", [this](Parameters_cls& curve) {
            curve.InitSet(0.0);
            curve.SetKey(1.0, KeyFrame_cls::kLinear, GetMaxFrame());
        });
    }
    PushValue(TimeValue::UseTimeRemap, on ? 0 : 1, on ? 1 : 0, false);
}

void TimeCtrl_cls::ExpandAACommand() {
    if (mSettings.GetActiveArea() == FrameRange{0, GetMaxFrame()}) return;
    const UndoBlock_cls block("Active Area");
    SetActiveAreaMinCommand(0);
    SetActiveAreaMaxCommand(GetMaxFrame());
}

void TimeCtrl_cls::GoTo(FramePlace place) {
    if (place == mPlace) return;
    const UndoBlock_cls block("Go to Frame");
    SetFrameCommand(place.frame);
    SetStepCommand(place.step);
}

void TimeCtrl_cls::SetFrameFromDoubleCommand(double d) {
    GoTo({RoundFrame(GetIndexFromDouble(d)), 0});
}

void TimeCtrl_cls::MoveFrameCommand(int direction) {
    GoTo({CalcNextFrame(kCurrent, direction), 0});
}

void TimeCtrl_cls::MoveFrameCommandLarge(int direction) {
    GoTo({CalcNextFrame(kCurrent, direction < 0 ? -kLargeMove : kLargeMove), 0});
}

void TimeCtrl_cls::MoveFrameCommandSnip(int direction) {
    GoTo({FindFrameWithKey(direction), 0});
}

void TimeCtrl_cls::MoveInterpStepCommand(int direction) {
    GoTo(CalcNextFrameFromStep(kCurrent, CalcNextStep(direction < 0 ? -1 : 1), false, false, direction));
}

// Scene length

void TimeCtrl_cls::CheckAfterMaxFrameChange(int oldMaxFrame) {
    const int maxFrame = GetMaxFrame();
    for (const TimeValue end : {TimeValue::WorkAreaMax, TimeValue::ActiveAreaMax}) {
        if (GetValue(end) >= oldMaxFrame) ApplyValue(end, maxFrame);
    }
    const FrameRange area = mSettings.GetActiveArea();
    ApplyValue(TimeValue::ActiveAreaMin, area.first);
    ApplyValue(TimeValue::ActiveAreaMax, area.last);
    KeepPlaceInside();
}

void TimeCtrl_cls::CheckWorkingArea() {
    const FrameRange area = mSettings.GetWorkArea();
    ApplyValue(TimeValue::WorkAreaMin, area.first);
    ApplyValue(TimeValue::WorkAreaMax, area.last);
}

void TimeCtrl_cls::SetMaxFrameNative(int maxFrame) {
    const int oldMaxFrame = GetMaxFrame();
    ApplyValue(TimeValue::MaxFrame, Limit(TimeValue::MaxFrame, maxFrame));
    CheckAfterMaxFrameChange(oldMaxFrame);
    CheckWorkingArea();
    UpdateSnipping();
}

void TimeCtrl_cls::SetMaxFrameCommand(int maxFrame, KeyRemap keys) {
    const int oldMaxFrame = GetMaxFrame();
    const int newMaxFrame = Limit(TimeValue::MaxFrame, maxFrame);
    if (newMaxFrame == oldMaxFrame) return;

    const UndoBlock_cls block("Scene Length");
    RemapKeys(keys, oldMaxFrame, newMaxFrame);

    // The new length reaches other values, and each of them has its own way back.
    constexpr TimeValue kReached[] = {
        TimeValue::MaxFrame,      TimeValue::WorkAreaMin, TimeValue::WorkAreaMax, TimeValue::ActiveAreaMin,
        TimeValue::ActiveAreaMax, TimeValue::Frame,       TimeValue::Step};
    int before[std::size(kReached)];
    for (size_t i = 0; i < std::size(kReached); ++i) before[i] = GetValue(kReached[i]);
    SetMaxFrameNative(newMaxFrame);
    for (size_t i = 0; i < std::size(kReached); ++i)
        PushValue(kReached[i], before[i], GetValue(kReached[i]), true);
}

void TimeCtrl_cls::RemapKeys(KeyRemap keys, int oldMaxFrame, int newMaxFrame) {
    if (oldMaxFrame == 0 || newMaxFrame == 0) return;  // no fraction stands for a frame there
    const double growth = static_cast<double>(newMaxFrame) / oldMaxFrame;
    if (keys == KeyRemap::DoRemap) RemapParameterKeys(1.0 / growth);
    if (keys == KeyRemap::KeyRemap) {
        ParamEdit_cls(GetRemapCurve()).Change("Remap Keys", [growth](Parameters_cls& curve) {
            Parameters_cls::State state = curve.GetState();
            for (KeyFrame_cls& key : state.keys)
                key.SetValue(key.mValue * growth, key.mVelocity * growth, key.mEaseFactor);
            curve.SetState(state);
        });
    }
}

void TimeCtrl_cls::RemapParameterKeys(double factor) {
    const UndoBlock_cls block("Remap Keys");
    ForEachParameter([factor](Parameters_cls& parameter) {
        ParamEdit_cls(parameter).Change("Remap Keys", [factor](Parameters_cls& p) { p.RemapKeys(factor); });
    });
}

// Keys of the scene

void TimeCtrl_cls::ForEachParameter(const std::function<void(Parameters_cls&)>& function) {
    Parameters_cls& curve = GetRemapCurve();
    if (mHost.forEachParameter) {
        mHost.forEachParameter([&](Parameters_cls& parameter) {
            if (&parameter != &curve) function(parameter);
        });
    }
    function(curve);
}

int TimeCtrl_cls::FindFrameWithKey(int direction) {
    const int here = GetFrame();
    int best = here;
    ForEachParameter([&](Parameters_cls& parameter) {
        const bool hidden = &parameter == &GetRemapCurve() && !mSettings.IsTimeRemap();
        if (hidden || !parameter.IsTimeDependent()) return;
        // Several keys may lie within the frame we are leaving.
        double t = GetDoubleIndex(here, 0);
        int frame = here;
        do {
            t = direction < 0 ? parameter.GetPrevKeyPosDoubleIndex(t) : parameter.GetNextKeyPosDoubleIndex(t);
            if (t < 0.0 || t > 1.0) return;
            frame = GetIndexFromDouble(t);
        } while (direction < 0 ? frame >= here : frame <= here);
        const bool nearer = direction < 0 ? frame > best : frame < best;
        if (best == here || nearer) best = frame;
    });
    return best;
}

void TimeCtrl_cls::UpdateSnipping() {
    if (mHost.clearSnipping) mHost.clearSnipping();
    if (!mHost.setSnipping) return;
    ForEachParameter([this](Parameters_cls& parameter) {
        for (const KeyFrame_cls& key : parameter.GetKeys())
            mHost.setSnipping(GetRemappedIndex(std::clamp(GetIndexFromDouble(key.mTime), 0, GetMaxFrame())));
    });
}

void TimeCtrl_cls::HideAndShowRemap() const {
    if (mHost.hideAndShowRemap) mHost.hideAndShowRemap(mSettings.IsTimeRemap());
}

// Text

wxString TimeCtrl_cls::Serialize() const {
    return mSettings.Serialize() + kRemapMarker + "\n" + mRemapGroup.Serialize();
}

bool TimeCtrl_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    if (mSettings.ReadStrLine(line)) {
        KeepPlaceInside();
        HideAndShowRemap();
        return true;
    }
    if (line != kRemapMarker) return false;

    wxString next;
    while (stream.ReadLine(next)) {
        if (next.Contains("ParamGroup=") && mRemapGroup.ReadStrLine(stream, next)) break;
        // Another block begins, and the curve's was missing.
        if (next.Contains("ParamGroup=") || next.StartsWith("--")) {
            stream.PutBack();
            break;
        }
    }
    return true;
}
