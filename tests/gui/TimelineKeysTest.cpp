#include "gui/clsTimelineKeys.h"

#include <gtest/gtest.h>

#include <random>

#include "gui/clsTimelineMarks.h"
#include "support/Keys.h"
#include "support/TimelineScene.h"

namespace {

using Frames = std::vector<double>;

class TimelineKeysTest : public ::testing::Test {
  protected:
    TimelineKeysTest() {
        mModel.mKeys.SetClipboard(
            {[this](const wxString& text) { mClipboard = text; }, [this] { return mClipboard; }});
        mModel.mTree.Update();
    }
    /// The row of a name, expanding what it is in.
    const TimelineTree_cls::Row& Row(const wxString& name) {
        for (size_t i = 0; i < mModel.mTree.GetRows().size(); ++i) {
            mModel.mTree.SetExpanded(TimelineTree_cls::Row(mModel.mTree.GetRows()[i]), true);
            if (mModel.mTree.GetRows()[i].GetName() == name) return mModel.mTree.GetRows()[i];
        }
        throw std::runtime_error("no such row");
    }
    TimelineKeys_cls::Lane Lane(const wxString& name) { return mModel.mTree.GetParameters(Row(name)); }
    void Drag(double from, double to) {
        mKeys.BeginDrag(from);
        // On the way the mouse passes other frames; they must not add up.
        mKeys.DragTo(0.9);
        mKeys.DragTo(from - 0.05);
        mKeys.DragTo(to);
        mKeys.EndDrag();
    }

    TimelineScene mScene;
    TimelineModel_cls mModel{mScene.time, mScene.trees};
    TimelineKeys_cls& mKeys = mModel.mKeys;
    wxString mClipboard;
};

TEST_F(TimelineKeysTest, ADragMovesByFramesAndIsOneStep) {
    const struct {
        const char* name;
        double to;
        Frames expected;
    } kCases[] = {
        {"to the nearest frame", 0.3149, {0, 31, 60}},
        {"onto another key, in its place", 0.601, {0, 60}},
        {"before the scene", -3.0, {0, 60}},
        {"behind the scene", 7.0, {0, 60, 100}},
        {"less than half a frame", 0.2049, {0, 20, 60}},
    };
    const wxString before = mScene.GetText();
    for (const auto& test : kCases) {
        mKeys.DeselectAll();
        TimelineKeys_cls::Select(Lane("Position"), 0.2);
        Drag(0.2, test.to);
        for (int i = 0; i < 3; ++i) {
            const Frames frames = mScene.GetFrames(i);
            ASSERT_EQ(frames.size(), test.expected.size()) << test.name;
            for (size_t k = 0; k < frames.size(); ++k)
                EXPECT_NEAR(frames[k], test.expected[k], 1e-7) << test.name;
        }
        const bool moved = mScene.GetText() != before;
        EXPECT_EQ(GCUndoList.CanUndo(), moved) << test.name;
        if (moved) GCUndoList.UndoCurrent();
        EXPECT_EQ(mScene.GetText(), before) << test.name;
        EXPECT_FALSE(GCUndoList.CanUndo()) << test.name;
    }
}

TEST_F(TimelineKeysTest, AGivenUpDragLeavesNothing) {
    const wxString before = mScene.GetText();
    TimelineKeys_cls::Select(Lane("y"), 0.6);
    mKeys.BeginDrag(0.6);
    mKeys.DragTo(0.4, 3.0);
    EXPECT_DOUBLE_EQ(mScene.position.GetParameter(1).GetKeyFrameValue(2), 8.0);
    EXPECT_EQ(mScene.GetFrames(0), (Frames{0, 20, 60})) << "only the selected component moves";
    mKeys.CancelDrag();
    EXPECT_EQ(mScene.GetText(), before);
    EXPECT_FALSE(GCUndoList.CanUndo());
}

TEST_F(TimelineKeysTest, CopiedKeysComeToTheRowTheyArePastedOn) {
    const struct {
        const char* name;
        const char* from;
        const char* to;
        const char* group;  ///< whose key numbers are expected
        std::vector<int> expected;
    } kCases[] = {
        {"a group to itself", "Position", "Position", "Position", {4, 4, 4}},
        {"a group to another, by components", "Position", "Light", "Light", {2, 2, 2}},
        {"a group to a smaller one", "Position", "Angle", "Angle", {2}},
        {"a component to a component", "z", "R", "Light", {2, 1, 1}},
        {"a component to the group", "z", "Light", "Light", {1, 1, 2}},
    };
    const wxString before = mScene.GetText();
    for (const auto& test : kCases) {
        mKeys.DeselectAll();
        TimelineKeys_cls::Select(Lane(test.from), 0.6);
        mKeys.Copy();
        EXPECT_TRUE(mKeys.Paste(&Row(test.to), 0.804)) << test.name;
        const TimelineKeys_cls::Lane pasted = Lane(test.group);
        ASSERT_EQ(pasted.size(), test.expected.size());
        for (size_t i = 0; i < pasted.size(); ++i) {
            EXPECT_EQ(pasted[i]->GetKeyNumber(), test.expected[i]) << test.name << ", component " << i;
            if (test.expected[i] > 1) {
                EXPECT_TRUE(pasted[i]->IsKeyFrame(0.8)) << test.name << ": at the frame";
            }
        }
        GCUndoList.UndoCurrent();
        EXPECT_EQ(mScene.GetText(), before) << test.name;
    }
    mScene.light->GetParameter(0).SetKey(0.7, 0, 1.0);
    mKeys.SelectAll();
    mKeys.Cut();
    EXPECT_EQ(mScene.GetFrames(), (Frames{0})) << "one key stays";
    mKeys.Paste(&Row("Angle"), 0.0);
    EXPECT_EQ(mScene.GetFrames(), (Frames{0, 20, 60})) << "keys of several groups go back to those";
    EXPECT_EQ(mScene.light->GetParameter(0).GetKeyNumber(), 2);
    for (const char* text : {"", "hello", "VarnholtKeys\n", "VarnholtKeys\nitemnum 9\nnan 0 1 \n"}) {
        mClipboard = text;
        EXPECT_FALSE(mKeys.Paste(&Row("Position"), 0.5)) << text;
    }
}

TEST_F(TimelineKeysTest, AnyEditsAreUndoneExactly) {
    std::mt19937 random{5};
    const auto upTo = [&](size_t n) { return static_cast<size_t>(random() % n); };
    const auto time = [&] { return static_cast<double>(upTo(120)) / 100.0 - 0.1; };
    const char* names[] = {"Camera", "Position", "x", "Angle", "Light", "G"};
    const auto lane = [&] { return Lane(names[upTo(std::size(names))]); };
    const std::function<void()> edits[] = {
        [&] { TimelineKeys_cls::SelectRegion(lane(), time(), time()); },
        [&] { mKeys.DeselectAll(); },
        [&] { Drag(time(), time()); },
        [&] { mKeys.MoveByFrames(static_cast<int>(upTo(20)) - 10); },
        [&] { mKeys.Delete(); },
        [&] { mKeys.SetType(static_cast<unsigned int>(upTo(6))); },
        [&] { mKeys.InsertKey(lane(), time()); },
        [&] { mKeys.SetTimeDependent(lane(), upTo(2) == 0); },
        [&] { mKeys.Copy(); },
        [&] { mKeys.Cut(); },
        [&] { mKeys.Paste(&Row(names[upTo(std::size(names))]), time()); },
        [&] {
            const TimelineKeys_cls::Lane target = lane();
            const auto key = TimelineKeys_cls::FindKey(target, time(), 0.2);
            if (key) TimelineKeys_cls::ChangeKeys(target, *key, {time(), 2U, 0.5, {}, {time()}});
        },
    };
    std::vector<wxString> texts = {mScene.GetText()};
    std::vector<size_t> cursors = {0};
    for (int i = 0; i < 3000; ++i) {
        edits[upTo(std::size(edits))]();
        for (const Parameters_cls* parameter : mModel.mTree.GetAllParameters())
            ASSERT_TRUE(IsSound(*parameter) && parameter->GetKeyNumber() > 0) << "edit " << i;
        if (GCUndoList.GetCursor() == cursors.back()) {
            ASSERT_EQ(mScene.GetText(), texts.back()) << "a change without a step, edit " << i;
            continue;
        }
        texts.push_back(mScene.GetText());
        cursors.push_back(GCUndoList.GetCursor());
    }
    EXPECT_GT(texts.size(), 500U);
    for (size_t i = texts.size() - 1; i-- > 0;) {
        GCUndoList.UndoCurrent();
        ASSERT_EQ(mScene.GetText(), texts[i]) << "one step for one edit, back to " << i;
    }
}

TEST_F(TimelineKeysTest, RowsFollowTheTrees) {
    const auto names = [this] {
        wxString text;
        mModel.mTree.Update();
        for (const auto& row : mModel.mTree.GetRows())
            text += wxString(' ', static_cast<size_t>(row.depth)) + row.GetName() + ";";
        return text;
    };
    EXPECT_EQ(names(), "Camera; Position; Angle;Light;");
    Row("x");
    EXPECT_EQ(names(), "Camera; Position;  x;  y;  z; Angle;Light;");
    mModel.mTree.SetOnlyKeyed(true);
    EXPECT_EQ(names(), "Camera; Position;  x;  y;  z;Light;");
    mModel.SetCurrentRow(5);
    mScene.trees.erase(mScene.trees.begin() + 1);
    mScene.light.reset();
    mScene.position.SetShy(true);
    EXPECT_EQ(names(), "") << "nothing left in the container";
    EXPECT_EQ(mModel.GetCurrentRow(), nullptr);
    mModel.mTree.SetOnlyKeyed(false);
    mScene.time.SetTimeRemapCommand(true);
    EXPECT_EQ(names(), "Camera; Angle;Time;");
    mScene.light = std::make_unique<ParamGroup_cls>("Light");
}

TEST_F(TimelineKeysTest, KeysOfOnePixelAreOneMark) {
    Parameters_cls::State many;
    many.timeDependent = true;
    for (int i = 0; i < 60000; ++i) many.keys.push_back(Key(i / 60000.0, 0.0, i < 30000 ? 4U : 1U));
    many.keys[45000].mSelected = true;
    mScene.angle.GetParameter(0).SetState(many);
    mModel.mScale.SetSize(1000.0, 100);
    const auto marks = TimelineMarks_cls::Gather(mModel, Lane("Angle"), 100, 899);
    ASSERT_EQ(marks.size(), 800U);
    EXPECT_EQ(marks.front().x, 100);
    EXPECT_EQ(marks.front().type, 4U);
    EXPECT_EQ(marks.back().type, 1U);
    EXPECT_EQ(std::ranges::count_if(marks, &TimelineMarks_cls::Mark::mixed), 1);
    EXPECT_EQ(std::ranges::count_if(marks, &TimelineMarks_cls::Mark::selected), 1);
    EXPECT_EQ(TimelineMarks_cls::GetRuns(marks, 5).size(), 3U)
        << "two bars with the selected key between them";
    EXPECT_EQ(TimelineMarks_cls::GetRuns({{10}, {12}, {30}}, 5).size(), 3U) << "a pair is no bar";
}

TEST(TimelineScaleTest, ZoomAndPanKeepTheSceneInSight) {
    std::mt19937 random{3};
    for (const int maxFrame : {0, 1, 100, 2147483647}) {
        TimelineScale_cls scale;
        scale.SetSize(800.0, maxFrame);
        EXPECT_NEAR(scale.ToX(maxFrame), maxFrame == 0 ? 20.0 : 780.0, 1e-3);
        for (int i = 0; i < 2000; ++i) {
            const double x = static_cast<double>(random() % 800);
            const double frame = scale.ToFrame(x);
            switch (random() % 4) {
                case 0:
                    scale.ZoomAt(x, random() % 2 ? 1.7 : 0.4);
                    // Only where the ends of the scene do not hold it back.
                    if (scale.ToFrame(400.0) > 1e-6 && scale.ToFrame(400.0) < maxFrame * (1.0 - 1e-9)) {
                        EXPECT_NEAR(scale.ToX(frame), x, 1e-3);
                    }
                    break;
                case 1:
                    scale.Pan(static_cast<double>(random() % 4000) - 2000.0);
                    break;
                case 2:
                    scale.SetSize(static_cast<double>(random() % 900), maxFrame);
                    scale.SetSize(800.0, maxFrame);
                    break;
                default:
                    scale.Follow(maxFrame * (static_cast<double>(random() % 100) / 99.0));
            }
            ASSERT_GT(scale.GetPixelsPerFrame(), 0.0);
            ASSERT_TRUE(scale.ToX(0.0) <= 801.0 && scale.ToX(maxFrame) >= -1.0) << maxFrame;
            ASSERT_GE(scale.GetTickSpacing(), 1);
            ASSERT_GE(scale.GetLabelSpacing(60.0) * scale.GetPixelsPerFrame(),
                      maxFrame > 1000000 ? 0.0 : 60.0);
        }
    }
}

}  // namespace
