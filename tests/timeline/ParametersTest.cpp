#include "support/SpecialNumbers.h"
#include "timeline/clsParameters.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

#include "support/Keys.h"
#include "support/ReadAll.h"

namespace {

using K = KeyFrame_cls;
constexpr double kHuge = std::numeric_limits<double>::max();

std::vector<double> Times(const Parameters_cls& parameter) {
    std::vector<double> times;
    for (const K& key : parameter.GetKeys()) times.push_back(key.mTime);
    return times;
}

TEST(ParametersTest, TheTextReadsBackAsItself) {
    Parameters_cls parameter("Zoom Factor");
    parameter.SetState({{Key(0.5, -1.25, 3, 1e7, 0.0000004), Key(1.0 / 3.0, 2.0 / 3.0, 4)}, true, 360});
    EXPECT_EQ(
        parameter.Serialize(),
        "Parameter_Zoom Factor\ntimeDepend=1\nperiodic=360\nitemnum 2\n"
        "0.333333333 4 0.666667 0.000000 0.000000 \n0.500000000 3 -1.250000 10000000.000000 0.000000 \n");
    parameter.SetState({{Key(1e-11, -kHuge, 4294967295U, kHuge, -1e-30), Key(2e-11, 2, 1),
                         Key(1.0 / 3.0, 1, 1), Key(1.0 / 3.0, 0, 2, 0, 1.0 / 3.0), Key(-1e-10, 0.1, 2, 0, 7)},
                        false,
                        0});
    Parameters_cls copy("Zoom Factor");
    EXPECT_EQ(ReadAll(copy, parameter.Serialize() + "next=1\n"), "next=1\n");
    EXPECT_EQ(copy.Serialize(), parameter.Serialize());
    EXPECT_EQ(copy.GetKeyNumber(), 5);
}

TEST(ParametersTest, DamagedTextLosesNoMoreThanItself) {
    struct Case {
        const char* name;
        const char* body;  // after the header
        std::vector<double> times;
        const char* next;  // the lines that are left for others
    };
    const Case cases[] = {
        {"count without keys", "itemnum 2000000000\n0.5 0 1 0 0 \nParameter_q\n", {0.5}, "Parameter_q\n"},
        {"count beyond numbers", "itemnum 99999999999999999999\n---Marker\n", {}, "---Marker\n"},
        {"settings of others follow", "itemnum 9\n0.5 0 1 0 0\nTimeMaxFrame=7\n", {0.5}, "TimeMaxFrame=7\n"},
        {"marker follows", "itemnum 9\n-0.5 0 1 0 0\n-FilterEnd\n", {-0.5}, "-FilterEnd\n"},
        {"negative count", "itemnum -3\n0.5 0 1 0 0\n", {}, "0.5 0 1 0 0\n"},
        {"no itemnum, next block", "timeDepend=1\nParameter_q\n", {}, "Parameter_q\n"},
        {"no itemnum, other line", "timeDepend=1\nsomething\nnext\n", {}, "next\n"},
        {"fields missing at the end", "itemnum 2\n0.5 0 1\n0.6 0\nnext\n", {0.5}, "next\n"},
        {"no numbers", "itemnum 4\nx 0 1 0 0\n1 0 1 0 y\n1 0.5 1 0 0\n0.7 0 1 0 0\nnext\n", {0.7}, "next\n"},
        {"not finite",
         "itemnum 4\nnan 0 1 0 0\n1 0 inf 0 0\n1 0 1 -nan 0\n1e999 0 1 0 0\nnext\n",
         {},
         "next\n"},
        {"out of order",
         "itemnum 3\n0.9 0 1 0 0\n0.1 0 2 0 0\n0.1 0 3 0 0\nnext\n",
         {0.1, 0.1, 0.9},
         "next\n"},
        {"carriage returns, tabs, signs", "itemnum 1\r\n+0.5\t0 1 0 0 \r\nnext\n", {0.5}, "next\n"},
        {"end in a block", "itemnum 3\n0.5 0 1 0 0 \n0.6 0 1 0", {0.5, 0.6}, ""},
        {"end before the block", "", {}, ""},
    };
    for (const Case& c : cases) {
        Parameters_cls parameter("p");
        EXPECT_EQ(ReadAll(parameter, wxString("Parameter_p\n") + c.body), c.next) << c.name;
        EXPECT_EQ(Times(parameter), c.times) << c.name;
        EXPECT_TRUE(IsSound(parameter)) << c.name;
    }
    Parameters_cls parameter("p");
    EXPECT_EQ(ReadAll(parameter, "parameter_p\nitemnum 0\n"), "parameter_p\nitemnum 0\n");
    EXPECT_EQ(parameter.GetKeyNumber(), 1) << "not its header: nothing changes";
}

TEST(ParametersTest, WhatIsNotFiniteOrNotThereChangesNothing) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0, 1), Key(1, 2, 3, 4)}, true, 0});
    const std::vector<K> before = parameter.GetKeys();
    for (const double bad : {kNaN<double>, kInfinity<double>, -kInfinity<double>}) {
        for (const int index :
             {parameter.SetKey(bad, 0, 1), parameter.SetKey(0, 0, bad), parameter.AddKey(Key(0, 0, 0, bad)),
              parameter.MoveKey(0, bad), parameter.InsertKey(bad)})
            EXPECT_EQ(index, -1);
        parameter.InitSet(bad);
        parameter.Quantize(bad);
        parameter.RemapKeys(bad);
    }
    for (const double factor : {0.0, -2.0, 1e-320}) parameter.RemapKeys(factor);
    for (const int none : {-1, 2, 1000000}) {
        EXPECT_FALSE(parameter.DeleteKey(none) || parameter.SetKeyType(none, 1) ||
                     parameter.SelectKeyFrame(none));
        EXPECT_EQ(parameter.MoveKey(none, 0.5), -1);
        EXPECT_EQ(parameter.CalcVelocity(0, none), 0.0);
        EXPECT_EQ(parameter.CalcInterpolateHermite(0.5, none), 0.0);
    }
    EXPECT_EQ(parameter.CalcInterpolateLinear(0.5, 1), 0.0) << "no segment starts at the last key";
    EXPECT_EQ(parameter.GetKeys(), before);
}

TEST(ParametersTest, KeysAreFoundAsFilesRoundThem) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0.333333333, 5, 4), Key(0.5, 6)}, true, 0});
    EXPECT_EQ(parameter.SetKey(1.0 / 3.0, 0, 7), 0) << "the key of that frame, not a second one beside it";
    EXPECT_EQ(Times(parameter), (std::vector<double>{0.333333333, 0.5}));
    EXPECT_TRUE(parameter.IsKeyFrame(0.52, 0.05));
    EXPECT_FALSE(parameter.IsKeyFrame(0.52, 0.01));
    EXPECT_EQ(parameter.FindKey(0.4, 1.0), 0) << "the nearest";
    EXPECT_EQ(parameter.GetNextKeyPosDoubleIndex(1.0 / 3.0), 0.5);
    EXPECT_EQ(parameter.GetPrevKeyPosDoubleIndex(1.0 / 3.0), -1.0);
}

TEST(ParametersTest, AnInsertedKeyLeavesTheCurveAsItIs) {
    for (const unsigned int type : {K::kLinear, K::kHermite, K::kStep}) {
        Parameters_cls parameter;
        parameter.SetState({{Key(0, 1, type, 5), Key(1, -2, type, 3)}, true, 0});
        const std::vector<K> before = parameter.GetKeys();
        EXPECT_EQ(parameter.InsertKey(0.3), 1);
        EXPECT_EQ(parameter.GetKeys()[1].mType, type);
        for (const double t : {0.1, 0.29, 0.3, 0.31, 0.5, 0.9})
            EXPECT_NEAR(parameter.Evaluate(t, 0.0), KeyCurve_cls(before, 0).Evaluate(t, 0.0), 1e-12) << type;
    }
}

TEST(ParametersTest, ASemiAutomaticKeyStartsWithTheAutomaticTangent) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0, 0, 1), Key(1, 3, 1), Key(2, 6, 3, 8, 0.5)}, true, 0});
    parameter.SetKeyTypeMulti({{1, 2}, {2, 2}, {7, 2}});
    EXPECT_EQ(parameter.GetHermiteVelocity(1), 3.0) << "its ease factor was only a copy of the tangent";
    EXPECT_EQ(parameter.GetHermiteVelocity(2), 1.5) << "an ease factor of its own stays";
}

TEST(ParametersTest, TheAxisIsStretchedMirroredAndSnapped) {
    Parameters_cls parameter;
    const Parameters_cls::State state{{Key(0, 0, 3, 4), Key(0.167, 1, 3, -2), Key(0.9, 1, 0)}, true, 0};
    parameter.SetState(state);
    const double value = parameter.Evaluate(0.1, 0.0);
    parameter.Flip();
    EXPECT_DOUBLE_EQ(parameter.Evaluate(1 - 0.1, 0.0), value);
    parameter.Flip();
    EXPECT_EQ(parameter.GetKeys(), state.keys);
    parameter.RemapKeys(0.5);
    EXPECT_DOUBLE_EQ(parameter.Evaluate(0.05, 0.0), value) << "the curve keeps its shape";
    parameter.Quantize(0.125);
    EXPECT_EQ(Times(parameter), (std::vector<double>{0, 0.125, 0.5}));
}

TEST(ParametersTest, KeysTravelAsTextToAnotherProgram) {
    wxString clipboard;
    const auto host = std::make_shared<ParamHost_cls>();
    host->putClipboard = [&](const wxString& text) { clipboard = text; };
    host->getClipboard = [&] { return clipboard; };
    Parameters_cls from("a", "", host);
    from.SetState({{Key(0.1, 1), Key(0.2, 1.0 / 3.0, 3, 1e-9, 7), Key(0.4, 3)}, true, 0});
    from.CopyKeyFrameToClipBoard();
    EXPECT_EQ(clipboard, "") << "nothing selected, nothing lost from the clipboard";
    EXPECT_EQ(from.SelectKeyFrameRegion(0.5, 0.15), 2);
    from.CopyKeyFrameToClipBoard();

    Parameters_cls to("b", "", host);
    to.SetState({{Key(0.5, 0), Key(0.7, 9)}, true, 0});
    EXPECT_EQ(to.PasteKeyFrameFromClipBoard(0.5), 2);
    EXPECT_EQ(to.GetSelectedKeyNum(), 2);
    to.DeselectAll();
    const std::vector<K> pasted = {Key(0.5, 1.0 / 3.0, 3, 1e-9, 7), Key(0.7, 3)};
    for (const char* text : {"", "0.5 0 1 0 0", "VarnholtKeys", "VarnholtKeys\nitemnum 3\n",
                             "VarnholtKeys\n1 2 3\nitemnum 2000000000\nnan 0 1 0 0\nx\n"}) {
        EXPECT_EQ(to.GetKeys(), pasted) << "with all digits";
        clipboard = text;
        EXPECT_EQ(to.PasteKeyFrameFromClipBoard(0.5), 0) << text;
    }
    EXPECT_EQ(Parameters_cls().PasteKeyFrameFromClipBoard(), 0) << "no host";
}

TEST(ParametersTest, WorkersEvaluateWhileTheTimelineMovesOn) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0, 0), Key(1, 10)}, true, 0});
    std::atomic<int> wrong{0};
    const auto work = [&] {
        for (int i = 0; i < 1000; ++i) {
            const double now = Parameters_cls::ResolveTime(-1.0);
            parameter.Evaluate(now, Parameters_cls::ResolveResolution(-1.0));
            wrong += std::abs(parameter.Evaluate(now, 0.0) - 10.0 * now) > 1e-12 ? 1 : 0;
        }
    };
    std::thread workers[] = {std::thread(work), std::thread(work), std::thread(work)};
    for (int frame = 50; frame >= 0; --frame) {
        Parameters_cls::SetFrameNumber(frame + 50, 2);
        Parameters_cls::msCurrentDoubleIndex = frame / 50.0;
        EXPECT_NEAR(parameter.GetInterpolatedValue(), frame / 5.0, 0.06);
    }
    for (std::thread& worker : workers) worker.join();
    EXPECT_EQ(wrong, 0);
}

TEST(ParametersTest, TheDisplayStepIsASubStepOfTheScene) {
    for (const auto& [frames, interp, resolution] :
         {std::tuple(50, 2, 0.01), {0, 4, 1.0}, {-5, 1, 1.0}, {100, -3, 0.01}}) {
        Parameters_cls::SetFrameNumber(frames, interp);
        EXPECT_EQ(Parameters_cls::msResolution, resolution) << frames << ", " << interp;
    }
}

}  // namespace
