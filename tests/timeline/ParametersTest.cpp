#include "timeline/clsParameters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <thread>
#include <vector>

#include "seam/clsLineStream.h"
#include "seam/clsTextCoding.h"
#include "support/Keys.h"

namespace {

using K = KeyFrame_cls;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHuge = std::numeric_limits<double>::max();

std::vector<double> Times(const Parameters_cls& parameter) {
    std::vector<double> times;
    for (const K& key : parameter.GetKeys()) times.push_back(key.mTime);
    return times;
}

/// Reads the whole text as the parameter's block and what follows; returns the first line that is left.
wxString ReadAll(Parameters_cls& parameter, const wxString& text) {
    LineStream_cls stream(ToBytes(text));
    wxString line;
    stream.ReadLine(line);
    EXPECT_TRUE(parameter.ReadStrLine(stream, line));
    stream.ReadLine(line);
    return line;
}

K RandomKey(std::mt19937& random) {
    std::uniform_real_distribution<double> number(-3.0, 3.0);
    // Every other time on few places, so that keys meet.
    const double t = random() % 2 ? number(random) : std::round(number(random) * 3.0) / 3.0;
    return Key(t, number(random), static_cast<unsigned int>(random() % 6), number(random), number(random));
}

bool IsSound(const Parameters_cls& parameter) {
    std::vector<K> keys = parameter.GetKeys();
    if (!std::is_sorted(keys.begin(), keys.end(), [](const K& a, const K& b) { return b > a; })) return false;
    KeyCurve_cls::AdjustAuto(keys, parameter.GetPeriodic(), 0, keys.size());
    return keys == parameter.GetKeys() &&
           std::all_of(keys.begin(), keys.end(), [](const K& k) { return k.IsFinite(); });
}

TEST(ParametersTest, TextIsTheLineFormat) {
    Parameters_cls parameter("Zoom Factor");
    parameter.SetState({{Key(0.5, -1.25, 3, 1e7, 0.0000004), Key(1.0 / 3.0, 2.0 / 3.0, 4)}, true, 360});
    EXPECT_EQ(
        parameter.Serialize(),
        "Parameter_Zoom Factor\ntimeDepend=1\nperiodic=360\nitemnum 2\n"
        "0.333333333 4 0.666667 0.000000 0.000000 \n0.500000000 3 -1.250000 10000000.000000 0.000000 \n");
}

TEST(ParametersTest, TextReadAndWrittenAgainIsTheSame) {
    std::mt19937 random(5);
    for (int round = 0; round < 300; ++round) {
        Parameters_cls parameter("p");
        Parameters_cls::State state{{}, round % 2 == 0, round % 3 == 0 ? 2 : 0};
        for (auto i = random() % 40; i > 0; --i) state.keys.push_back(RandomKey(random));
        if (round % 10 == 0) state.keys.push_back(Key(1e-11, -kHuge, 4294967295U, kHuge, -1e-30));
        parameter.SetState(state);

        Parameters_cls copy("p");
        EXPECT_EQ(ReadAll(copy, parameter.Serialize() + "next=1\n"), "next=1");
        ASSERT_EQ(copy.Serialize(), parameter.Serialize()) << "round " << round;
        ASSERT_EQ(copy.GetKeyNumber(), parameter.GetKeyNumber());
        ASSERT_TRUE(IsSound(copy));
    }
}

TEST(ParametersTest, DamagedTextLosesNoMoreThanItself) {
    struct Case {
        const char* name;
        const char* body;  // after the header
        std::vector<double> times;
        const char* next;  // the first line that is left for others
    };
    const Case cases[] = {
        {"count without keys", "itemnum 2000000000\n0.5 0 1 0 0 \nParameter_q\n", {0.5}, "Parameter_q"},
        {"count beyond numbers", "itemnum 99999999999999999999\n---Marker\n", {}, "---Marker"},
        {"settings of others follow", "itemnum 9\n0.5 0 1 0 0\nTimeMaxFrame=7\n", {0.5}, "TimeMaxFrame=7"},
        {"marker follows", "itemnum 9\n-0.5 0 1 0 0\n-FilterEnd\n", {-0.5}, "-FilterEnd"},
        {"negative count", "itemnum -3\n0.5 0 1 0 0\n", {}, "0.5 0 1 0 0"},
        {"no number", "itemnum many\nnext\n", {}, "next"},
        {"no itemnum, next block", "timeDepend=1\nParameter_q\n", {}, "Parameter_q"},
        {"no itemnum, other line", "timeDepend=1\nsomething\nnext\n", {}, "next"},
        {"fields missing at the end", "itemnum 2\n0.5 0 1\n0.6 0\nnext\n", {0.5}, "next"},
        {"no numbers", "itemnum 4\nx 0 1 0 0\n1 0 1 0 y\n1 0.5 1 0 0\n0.7 0 1 0 0\nnext\n", {0.7}, "next"},
        {"not finite",
         "itemnum 4\nnan 0 1 0 0\n1 0 inf 0 0\n1 0 1 -nan 0\n1e999 0 1 0 0\nnext\n",
         {},
         "next"},
        {"out of order", "itemnum 3\n0.9 0 1 0 0\n0.1 0 2 0 0\n0.1 0 3 0 0\nnext\n", {0.1, 0.1, 0.9}, "next"},
        {"carriage returns, tabs, signs", "itemnum 1\r\n+0.5\t0 1 0 0 \r\nnext\n", {0.5}, "next"},
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
    LineStream_cls stream("itemnum 0\n");
    EXPECT_FALSE(parameter.ReadStrLine(stream, "parameter_p"));
    EXPECT_EQ(parameter.GetKeyNumber(), 1) << "not its header: nothing changes";
}

TEST(ParametersTest, KeysStaySortedAndTangentsUpToDateUnderAnyEdits) {
    using P = Parameters_cls;
    const std::vector<std::function<void(P&, int, const K&)>> edits = {
        [](P& p, int, const K& k) { p.SetKey(k.mTime, k.mType, k.mValue, k.mVelocity, k.mEaseFactor); },
        [](P& p, int i, const K& k) { p.AddKey(k, i); },
        [](P& p, int i, const K& k) { p.OverwriteKey(i, k); },
        [](P& p, int, const K& k) { p.InsertKey(k.mTime); },
        [](P& p, int i, const K&) { p.DeleteKey(i); },
        [](P& p, int i, const K& k) { p.MoveKey(i, k.mTime, i + 1); },
        [](P& p, int i, const K& k) { p.SetKeyType(i, k.mType); },
        [](P& p, int i, const K&) { p.SelectKeyFrame(i); },
        [](P& p, int, const K&) { p.DeleteSelectedKey(); },
        [](P& p, int, const K& k) { p.MoveSelectedKey(k.mTime, k.mValue); },
        [](P& p, int, const K& k) {
            p.PasteKeys({k, Key(k.mTime + 1.0, 2, 1)}, 0.5);
        },
        [](P& p, int, const K&) { p.Flip(); },
        [](P& p, int, const K&) { p.Quantize(0.25); },
        [](P& p, int i, const K&) { p.SetPeriodic(i % 2 == 0 ? 2 : 0); },
        [](P& p, int i, const K&) { p.RemapKeys(i % 2 == 0 ? 2.0 : 0.5); },
    };
    std::mt19937 random(11);
    Parameters_cls parameter;
    for (int round = 0; round < 6000; ++round) {
        const int i = static_cast<int>(random() % 12) - 1;
        edits[random() % edits.size()](parameter, i, RandomKey(random));
        ASSERT_TRUE(IsSound(parameter)) << "round " << round;
    }
}

TEST(ParametersTest, AnEditOfOneKeyHasAWayBack) {
    using P = Parameters_cls;
    const std::vector<std::function<void(P&, int, const K& old, const K&)>> edits = {
        [](P& p, int, const K&, const K& k) { p.DeleteKey(p.AddKey(k)); },
        [](P& p, int i, const K& old, const K& k) { p.OverwriteKey(p.OverwriteKey(i, k), old, i); },
        [](P& p, int i, const K& old, const K& k) { p.MoveKey(p.MoveKey(i, k.mTime), old.mTime, i); },
        [](P& p, int i, const K& old, const K&) { p.AddKey(old, p.DeleteKey(i) ? i : -1); },
    };
    std::mt19937 random(13);
    for (int round = 0; round < 2000; ++round) {
        P parameter;
        P::State state{{}, true, 0};
        for (auto i = 3 + random() % 8; i > 0; --i) state.keys.push_back(RandomKey(random));
        parameter.SetState(state);
        const std::vector<K> before = parameter.GetKeys();
        const size_t i = random() % before.size();
        edits[random() % edits.size()](parameter, static_cast<int>(i), before[i], RandomKey(random));
        ASSERT_EQ(parameter.GetKeys(), before) << "round " << round;
    }
}

TEST(ParametersTest, WhatIsNotFiniteChangesNothing) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0, 1), Key(1, 2, 3, 4)}, true, 0});
    const std::vector<K> before = parameter.GetKeys();
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_EQ(parameter.SetKey(bad, 0, 1), -1);
        EXPECT_EQ(parameter.SetKey(0, 0, bad), -1);
        EXPECT_EQ(parameter.AddKey(Key(0, 0, 0, bad)), -1);
        EXPECT_EQ(parameter.MoveKey(0, bad), -1);
        EXPECT_EQ(parameter.InsertKey(bad), -1);
        parameter.InitSet(bad);
        parameter.Quantize(bad);
        parameter.RemapKeys(bad);
        parameter.SelectKeyFrameRegion(-9, 9);
        parameter.MoveSelectedKey(bad, 0);
        parameter.MoveSelectedKey(0, bad);
        parameter.DeselectAll();
    }
    for (const double factor : {0.0, -2.0, 1e-320}) parameter.RemapKeys(factor);
    parameter.Quantize(0.0);
    EXPECT_EQ(parameter.GetKeys(), before);
    for (const int none : {-1, 2, 1000000}) {
        EXPECT_FALSE(parameter.DeleteKey(none) || parameter.SetKeyType(none, 1) ||
                     parameter.SelectKeyFrame(none));
        EXPECT_EQ(parameter.MoveKey(none, 0.5), -1);
        EXPECT_EQ(parameter.CalcVelocity(0, none), 0.0);
        EXPECT_EQ(parameter.CalcInterpolateHermite(0.5, none), 0.0);
    }
    EXPECT_EQ(parameter.CalcInterpolateLinear(0.5, 1), 0.0) << "no segment starts at the last key";
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
    EXPECT_EQ(parameter.GetNextKeyPosDoubleIndex(0.5), -1.0);
    EXPECT_EQ(parameter.GetPrevKeyPosDoubleIndex(1.0 / 3.0), -1.0);
    EXPECT_EQ(parameter.GetPrevKeyPosDoubleIndex(0.5), 0.333333333);
}

TEST(ParametersTest, AnInsertedKeyLeavesTheCurveAsItIs) {
    for (const unsigned int type : {K::kLinear, K::kHermite, K::kStep}) {
        Parameters_cls parameter;
        parameter.SetState({{Key(0, 1, type, 5), Key(1, -2, type, 3)}, true, 0});
        std::vector<double> before;
        for (int i = 0; i <= 20; ++i) before.push_back(parameter.Evaluate(i / 20.0, 0.0));
        const int index = parameter.InsertKey(0.3);
        EXPECT_EQ(parameter.GetKeys()[static_cast<size_t>(index)].mType, type);
        for (int i = 0; i <= 20; ++i)
            EXPECT_NEAR(parameter.Evaluate(i / 20.0, 0.0), before[static_cast<size_t>(i)], 1e-12) << type;
    }
}

TEST(ParametersTest, SelectedKeysAreDeletedButOne) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0, 1), Key(0.5, 2), Key(1, 3)}, true, 0});
    EXPECT_EQ(parameter.SelectKeyFrameRegion(1.0, 0.5), 2);
    EXPECT_EQ(parameter.DeleteSelectedKey(), 2);
    EXPECT_EQ(Times(parameter), std::vector<double>{0});
    parameter.SelectKeyFrame(0);
    EXPECT_EQ(parameter.DeleteSelectedKey(), 0);
    EXPECT_EQ(parameter.Evaluate(0, 0), 1.0);
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
    parameter.RemapKeys(0.5);
    EXPECT_DOUBLE_EQ(parameter.Evaluate(0.05, 0.0), value) << "the curve keeps its shape";
    parameter.SetState(state);
    parameter.Flip();
    EXPECT_EQ(parameter.GetKeyNumber(), 3);
    EXPECT_DOUBLE_EQ(parameter.Evaluate(1 - 0.1, 0.0), value);
    parameter.Flip();
    EXPECT_EQ(parameter.GetKeys(), state.keys);
    parameter.Quantize(0.25);
    EXPECT_EQ(Times(parameter), (std::vector<double>{0, 0.25, 1}));
}

TEST(ParametersTest, KeysTravelAsTextToAnotherProgram) {
    wxString clipboard;
    const auto makeHost = [&] {
        auto host = std::make_shared<ParamHost_cls>();
        host->putClipboard = [&](const wxString& text) { clipboard = text; };
        host->getClipboard = [&] { return clipboard; };
        return host;
    };
    Parameters_cls from("a", "", makeHost());
    from.SetState({{Key(0.1, 1), Key(0.2, 1.0 / 3.0, 3, 1e-9, 7), Key(0.4, 3)}, true, 0});
    from.CopyKeyFrameToClipBoard();
    EXPECT_EQ(clipboard, "") << "nothing selected, nothing lost from the clipboard";
    from.SelectKeyFrameRegion(0.15, 0.5);
    from.CopyKeyFrameToClipBoard();

    Parameters_cls to("b", "", makeHost());
    to.SetState({{Key(0.5, 0), Key(0.7, 9)}, true, 0});
    EXPECT_EQ(to.PasteKeyFrameFromClipBoard(0.5), 2);
    EXPECT_EQ(to.GetSelectedKeyNum(), 2);
    to.DeselectAll();
    EXPECT_EQ(to.GetKeys(), (std::vector<K>{Key(0.5, 1.0 / 3.0, 3, 1e-9, 7), Key(0.7, 3)}))
        << "with all digits";

    for (const char* text : {"", "0.5 0 1 0 0", "VarnholtKeys", "VarnholtKeys\nitemnum 3\n",
                             "VarnholtKeys\n1 2 3\nitemnum 2000000000\nnan 0 1 0 0\nx\n"}) {
        clipboard = text;
        EXPECT_EQ(to.PasteKeyFrameFromClipBoard(0.5), 0) << text;
    }
    EXPECT_EQ(to.GetKeyNumber(), 2);
    EXPECT_EQ(Parameters_cls().PasteKeyFrameFromClipBoard(), 0) << "no host";
}

TEST(ParametersTest, WorkersEvaluateWhileTheTimelineMovesOn) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0, 0), Key(1, 10)}, true, 0});
    std::atomic<int> wrong{0};
    const auto work = [&] {
        for (int i = 1; i < 1000; ++i) {
            const double now = Parameters_cls::ResolveTime(-1.0);
            wrong += std::abs(parameter.Evaluate(now, 0.0) - 10.0 * now) > 1e-12 ? 1 : 0;
            parameter.Evaluate(i / 1000.0, Parameters_cls::ResolveResolution(-1.0));
        }
    };
    std::thread workers[] = {std::thread(work), std::thread(work), std::thread(work)};
    for (int frame = 0; frame <= 50; ++frame) {
        Parameters_cls::SetFrameNumber(frame + 50, 2);
        Parameters_cls::msCurrentDoubleIndex = frame / 50.0;
        EXPECT_NEAR(parameter.GetInterpolatedValue(), frame / 5.0, 0.06);
    }
    for (std::thread& worker : workers) worker.join();
    EXPECT_EQ(wrong, 0);
    Parameters_cls::msCurrentDoubleIndex = 0.0;
}

TEST(ParametersTest, TheDisplayStepIsASubStepOfTheScene) {
    const double cases[][3] = {{50, 2, 0.01}, {0, 4, 1.0}, {-5, 1, 1.0}, {100, 0, 0.01}, {100, -3, 0.01}};
    for (const auto& [frames, interp, resolution] : cases) {
        Parameters_cls::SetFrameNumber(static_cast<int>(frames), static_cast<int>(interp));
        EXPECT_EQ(Parameters_cls::msResolution, resolution)
            << frames << " frames, " << interp << " sub-steps";
    }
}

}  // namespace
