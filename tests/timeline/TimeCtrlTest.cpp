#include "support/SpecialNumbers.h"
#include "timeline/clsTimeCtrl.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/FakeClock.h"
#include "support/ReadAll.h"
#include "timeline/clsParamEdit.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr int kLargest = std::numeric_limits<int>::max();

class TimeCtrlTest : public ::testing::Test {
  protected:
    TimeCtrlTest() : mTime(MakeHost()) { GCUndoList.Clear(); }
    ~TimeCtrlTest() override { GCUndoList.Clear(); }

    TimeHost_cls MakeHost() {
        return {.forEachParameter = [this](const auto& visit) { visit(mCamera); },
                .clearSnipping = [this] { mTagged.clear(); },
                .setSnipping = [this](int snapshot) { mTagged.push_back(snapshot); },
                .refreshViews = [this] { ++mShown; },
                .hideAndShowRemap = [this](bool shown) { mRemapShown = shown; }};
    }
    void Read(const wxString& text) { EXPECT_EQ(ReadAll(mTime, text), ""); }
    void SetRemap(double first, double last) {
        Curve().InitSet(first);
        Curve().SetKey(1.0, KeyFrame_cls::kLinear, last);
    }
    Parameters_cls& Curve() { return mTime.GetRemapGroup().GetParameter(0); }
    wxString Place() const { return wxString::Format("%d+%d", mTime.GetFrame(), mTime.GetStep()); }

    FakeClock_cls mClock;
    Parameters_cls mCamera{"Angle", "Camera.Angle"};
    std::vector<int> mTagged;
    int mShown = 0;
    bool mRemapShown = false;
    TimeCtrl_cls mTime;
};

TEST_F(TimeCtrlTest, FramesMapToNormalisedTimeAndBack) {
    Read("TimeAnimInterp=4\nTimeWorkAreaMin=20\n");
    EXPECT_EQ(mTime.GetDoubleIndex(10, 2), 0.105);
    EXPECT_EQ(mTime.GetDoubleIndexWAMin(), 0.2);
    EXPECT_EQ(Parameters_cls::msResolution, 1.0 / 100 / 4);
    mTime.SetFrameNative(10);
    mTime.SetStepNative(1);
    EXPECT_EQ(Parameters_cls::msCurrentDoubleIndex, 0.1025);

    for (const int maxFrame : {0, 1, 7, 100, 9973, 20000000, kLargest}) {
        mTime.SetMaxFrameNative(maxFrame);
        for (const double part : {0.0, 0.1, 0.5, 0.77, 1.0}) {
            const int frame = static_cast<int>(maxFrame * part);
            EXPECT_EQ(mTime.GetIndexFromDouble(mTime.GetDoubleIndex(frame, 0)), frame) << maxFrame;
        }
    }
    for (const double odd : {1e300, -1e300, kNaN<double>})
        EXPECT_LE(std::abs(mTime.GetIndexFromDouble(odd)), kLargest);
}

TEST_F(TimeCtrlTest, FramesMapToDataPositions) {
    Read("TimeAnimInterp=4\n");
    EXPECT_EQ(mTime.GetRemappedIndexDouble(10, 3), 10.75);
    mTime.SetFrameNative(7);
    mTime.SetStepNative(2);
    EXPECT_EQ(mTime.GetRemappedInterpStepDouble(), 0.5);
    EXPECT_EQ(mTime.GetRemappedIndex(), 7);

    Read("TimeUseTimeRemap=1\nTimeAnimInterp=1\n");
    for (const auto& [value, expected] : {std::pair(4.999995, 5.0), {-3.0, 0.0}, {4.9999, 4.9999}}) {
        SetRemap(value, value);
        EXPECT_EQ(mTime.GetRemappedIndexDouble(30, 0), expected);
    }
    SetRemap(1e300, 1e300);
    EXPECT_EQ(mTime.GetRemappedIndex(30), kLargest);
    SetRemap(0.0, 50.0);
    EXPECT_EQ(mTime.GetRemappedIndexDouble(30, 0), 15.0);
}

TEST_F(TimeCtrlTest, MotionBlurShiftsOnlyTheCurrentFrame) {
    Read("TimeUseMotionBlur=1\nTimeAnimInterp=2\n");
    mTime.SetMotionBlur(4, 0.5F);
    mTime.SetFrameNative(10);
    mTime.StartPlay();
    for (const double expected : {10.0625, 10.125, 10.1875, 10.5, 10.5625, 10.625}) {
        mTime.ProcPlaying();
        EXPECT_NEAR(Parameters_cls::msCurrentDoubleIndex * 100, expected, 1e-12);
    }
    EXPECT_EQ(mTime.GetDoubleIndex(10, 1), 0.105);
    mTime.ProcStopPlaying();
    EXPECT_NEAR(Parameters_cls::msCurrentDoubleIndex, 0.105, 1e-15) << "a still frame has its own time";

    mTime.StartPlay(-1);
    mTime.ProcPlaying();
    EXPECT_EQ(mTime.GetMotionBlur().GetSample(), 3);
    EXPECT_EQ(Place(), "10+0");
}

TEST_F(TimeCtrlTest, PlaybackStopsOrRepeatsAtTheEnds) {
    // From where, with what increment; how many of 20 rounds show something, and where they end.
    const struct {
        const char* settings;
        int frame, step, increment, shown;
        const char* end;
    } cases[] = {
        {"TimeMaxFrame=5\nTimeAnimInterp=3\n", 3, 0, 1, 6, "5+0"},
        {"TimeMaxFrame=5\nTimeAnimInterp=3\n", 2, 1, -1, 7, "0+0"},
        {"TimeMaxFrame=9\nTimeWorkAreaMax=4\nTimeAnimInterp=2\n", 3, 0, 1, 2, "4+0"},
        {"TimeMaxFrame=2\nTimeAnimInterp=2\nTimeRepeat=1\n", 1, 1, -1, 20, "1+1"},
        {"TimeMaxFrame=3\nTimeAnimStep=0\nTimeAnimInterp=-7\n", 0, 0, 1, 3, "3+0"},
        {"TimeMaxFrame=4294967295\nTimeAnimStep=2147483647\nTimeAnimInterp=2147483647\n", 0, 0, 1, 20,
         "0+20"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.settings);
        Read("TimeWorkAreaMax=2147483647\nTimeAnimStep=1\nTimeAnimInterp=1\nTimeRepeat=0\n");
        Read(c.settings);
        mTime.SetFrameNative(c.frame);
        mTime.SetStepNative(c.step);
        mShown = 0;
        mTime.StartPlay(c.increment);
        for (int i = 0; i < 20 && mTime.ProcPlaying(); ++i) continue;
        EXPECT_EQ(mShown, c.shown);
        EXPECT_EQ(Place(), c.end);
        EXPECT_EQ(mTime.IsPlaying(), c.shown == 20);
    }
    mTime.StopAnimationAt(kLargest);
    mTime.StartPlay(0);
    EXPECT_FALSE(mTime.ProcPlaying());
    EXPECT_EQ(mTime.GetFrame(), mTime.GetMaxFrame());
}

TEST_F(TimeCtrlTest, PlaybackKeepsItsPace) {
    mTime.StartPlay();
    std::vector<long long> at;
    for (const int drawing : {0, 1, 10, 29, 30, 500}) {
        mClock.mNow += drawing;
        mTime.ProcPlaying();
        at.push_back(mClock.mNow - 1000);
    }
    // 30 ms from frame to frame, looked at every 3 ms; a frame that took longer is followed at once.
    EXPECT_EQ(at, (std::vector<long long>{30, 61, 92, 124, 154, 654}));
}

TEST_F(TimeCtrlTest, EverySetterHasBoundsAndIsUndone) {
    const struct {
        TimeValue which;
        int value, highest, lowest;
    } cases[] = {
        {TimeValue::Frame, 40, 100, 0},         {TimeValue::AnimInterp, 4, kLargest, 1},
        {TimeValue::AnimStep, 3, kLargest, 1},  {TimeValue::WorkAreaMax, 60, 100, 0},
        {TimeValue::WorkAreaMin, 30, 100, 0},   {TimeValue::ActiveAreaMax, 60, 100, 0},
        {TimeValue::ActiveAreaMin, 30, 100, 0}, {TimeValue::Prefetch, 5, TimeCtrl_cls::kMaxPrefetch, 0},
        {TimeValue::UseMotionBlur, 1, 1, 1},    {TimeValue::SceneLengthType, 2, kLargest, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.which));
        const int before = mTime.GetValue(c.which);
        mTime.SetValueCommand(c.which, c.value);
        mTime.SetValueCommand(c.which, c.value);
        EXPECT_EQ(mTime.GetValue(c.which), c.value);
        EXPECT_EQ(GCUndoList.GetCursor(), 1U) << "no step for no change";
        GCUndoList.UndoCurrent();
        EXPECT_EQ(mTime.GetValue(c.which), before);
        mTime.SetValueNative(c.which, kLargest);
        EXPECT_EQ(mTime.GetValue(c.which), c.highest);
        mTime.SetValueNative(c.which, -kLargest);
        EXPECT_EQ(mTime.GetValue(c.which), c.lowest);
        mTime.SetValueNative(c.which, before);
    }
    mTime.SetFrameCommand(33);
    EXPECT_FALSE(GCUndoList.IsModified()) << "the current frame is not saved";
    mTime.SetRepeatCommand(true);
    EXPECT_TRUE(GCUndoList.IsModified());
}

TEST_F(TimeCtrlTest, FramesAreGoneToByTheCommandsOfTheWindow) {
    mCamera.SetTimeDependent(true);
    for (const double t : {0.3, 0.3001, 0.3002, 0.6}) mCamera.SetKey(t, KeyFrame_cls::kLinear, t);
    mTime.SetAnimInterpNative(2);
    using Time = TimeCtrl_cls;
    const struct {
        void (Time::*command)(int);
        int direction;
        const char* place;
    } cases[] = {
        {&Time::MoveFrameCommandLarge, 1, "10+0"}, {&Time::MoveInterpStepCommand, 1, "10+1"},
        {&Time::MoveInterpStepCommand, 1, "11+0"}, {&Time::MoveInterpStepCommand, -1, "10+1"},
        {&Time::MoveFrameCommandSnip, 1, "30+0"},  {&Time::MoveFrameCommandSnip, 1, "60+0"},
        {&Time::MoveFrameCommandSnip, 1, "60+0"},  {&Time::MoveFrameCommandSnip, -1, "30+0"},
        {&Time::MoveFrameCommand, 1, "31+0"},      {&Time::MoveFrameCommandLarge, -1, "21+0"},
    };
    for (const auto& c : cases) {
        (mTime.*c.command)(c.direction);
        EXPECT_EQ(Place(), c.place) << &c - cases;
    }
    mTime.SetFrameFromDoubleCommand(0.42);
    EXPECT_EQ(Place(), "42+0");
    mTime.SetCustomRegion(70, 50);
    EXPECT_EQ(mTime.CalcNextFrame(69, 5, true), 70);
}

TEST_F(TimeCtrlTest, ANewSceneLengthKeepsAreasInsideAndMovesKeysAsChosen) {
    using enum TimeCtrl_cls::KeyRemap;
    mTime.SetWorkAreaMinNative(40);
    mTime.SetActiveAreaMaxNative(70);
    mTime.SetFrameNative(95);
    mCamera.SetTimeDependent(true);
    mCamera.SetKey(0.5, KeyFrame_cls::kHermite, 1.0, 3.0);
    SetRemap(0.0, 80.0);
    const auto describe = [this] {
        const FrameRange work = mTime.GetSettings().GetWorkArea();
        const FrameRange active = mTime.GetSettings().GetActiveArea();
        const KeyFrame_cls& key = Curve().GetKeys()[1];
        const int frames = mTime.GetMaxFrame();
        return wxString::Format("%d-%d %d-%d at %s, keys %g %g>%g", work.first, work.last, active.first,
                                active.last, Place(), mCamera.GetKeys()[1].mTime * frames, key.mTime * frames,
                                key.mValue);
    };
    const wxString before = mTime.Serialize() + mCamera.Serialize();
    const struct {
        int maxFrame;
        TimeCtrl_cls::KeyRemap keys;
        const char* expected;
    } cases[] = {
        {400, DoNotRemap, "40-400 0-70 at 95+0, keys 200 400>80"},
        {400, DoRemap, "40-400 0-70 at 95+0, keys 50 100>80"},
        {400, KeyRemap, "40-400 0-70 at 95+0, keys 200 400>320"},
        {60, DoRemap, "40-60 0-60 at 60+0, keys 50 100>80"},
        {20, KeyRemap, "20-20 0-20 at 20+0, keys 10 20>16"},
        {0, DoRemap, "0-0 0-0 at 0+0, keys 0 0>80"},
    };
    for (const auto& c : cases) {
        mTime.SetMaxFrameCommand(c.maxFrame, c.keys);
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(describe(), c.expected);
            EXPECT_EQ(Parameters_cls::msFrameNumber, c.maxFrame);
            GCUndoList.UndoCurrent();
            EXPECT_EQ(mTime.Serialize() + mCamera.Serialize(), before);
            EXPECT_EQ(Place(), "95+0");
            GCUndoList.ExecCurrent();
        }
        GCUndoList.UndoCurrent();
    }
}

TEST_F(TimeCtrlTest, SwitchingTheRemapOnBeginsWithACurveThatChangesNothing) {
    const wxString before = mTime.Serialize();
    mTime.SetTimeRemapCommand(true);
    EXPECT_TRUE(mRemapShown);
    for (const int frame : {0, 37, 100}) EXPECT_NEAR(mTime.GetRemappedIndexDouble(frame, 0), frame, 1e-9);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(mTime.Serialize(), before);
    EXPECT_FALSE(mRemapShown);
}

TEST_F(TimeCtrlTest, SnapshotsAreTaggedWhereKeysAre) {
    ParamEdit_cls(mCamera).SetKey(0.25, KeyFrame_cls::kLinear, 1.0);
    EXPECT_EQ(mTagged, (std::vector<int>{0, 25, 0}));
    mCamera.SetKey(7.0, KeyFrame_cls::kLinear, 1.0);
    mTime.SetMaxFrameNative(10);
    EXPECT_EQ(mTagged, (std::vector<int>{0, 2, 10, 0})) << "keys out of the scene count for its ends";
}

TEST_F(TimeCtrlTest, TheTextReadsBackAsItself) {
    EXPECT_EQ(
        mTime.Serialize(),
        "TimeMaxFrame=100\nTimeWorkAreaMin=0\nTimeWorkAreaMax=100\nTimeActiveAreaMin=0\n"
        "TImeActiveAreaMax=100\nTimeUseTimeRemap=0\nTimeUseMotionBlur=0\nTimeAnimStep=1\nTimeAnimInterp=1\n"
        "TimeRepeat=0\nTimeSceneLengthType=0\n---TimeRemap\n" +
            mTime.GetRemapGroup().Serialize());
    Read("TimeMaxFrame=250\nTimeWorkAreaMin=7\nTimeWorkAreaMax=200\nTimeUseTimeRemap=1\n");
    SetRemap(1.0, 21.0);
    TimeCtrl_cls other;
    EXPECT_EQ(ReadAll(other, mTime.Serialize()), "");
    EXPECT_EQ(other.Serialize(), mTime.Serialize());
    EXPECT_EQ(other.GetRemappedIndexDouble(125, 0), 11.0);
}

TEST_F(TimeCtrlTest, DamagedTextHarmsNothingElse) {
    for (const wxString rest : {"---CameraPath\nx\n", "-ParamGroup=Other\nx\n"})
        EXPECT_EQ(ReadAll(mTime, "---TimeRemap\n" + rest), rest) << "what belongs to others is left to them";
    mTime.SetFrameNative(90);
    Read("TimeMaxFrame=85\nTimeWorkAreaMin=99\nTimeWorkAreaMax=30\n");
    EXPECT_EQ(Place(), "85+0");
    EXPECT_EQ(mTime.GetSettings().GetWorkArea(), (FrameRange{30, 85})) << "ends in order, inside the scene";
}

}  // namespace
