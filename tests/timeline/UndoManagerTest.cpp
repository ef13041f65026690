#include "timeline/clsUndoManager.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

#include "support/RecordingSink.h"
#include "timeline/clsComBlock.h"
#include "timeline/clsCommandSetColor.h"
#include "timeline/clsCommandSetValue.h"

namespace {

/// Runs a function; throws or changes nothing on demand.
class Call_cls : public CommandItem_cls {
  public:
    explicit Call_cls(std::function<void()> call, int bits = 0, bool changesProject = true)
        : CommandItem_cls(bits), mCall(std::move(call)), mChangesProject(changesProject) {}
    void Execute(bool) override {
        mCall();
        UpdateBit();
    }
    bool ChangesProject() const override { return mChangesProject; }

  private:
    std::function<void()> mCall;
    bool mChangesProject;
};

class UndoManagerTest : public ::testing::Test {
  protected:
    void SetUp() override { GCUndoList.Clear(); }
    void TearDown() override { GCUndoList.Clear(); }

    /// The change of mValue to `value` as one pair.
    void Set(int value) { SetValueCommand("Set", mValue, value, 0); }
    void Push(int value) {
        const int before = mValue;
        GCUndoList.PushNewCommand(std::make_unique<Call_cls>([=, this] { mValue = value; }),
                                  std::make_unique<Call_cls>([=, this] { mValue = before; }));
    }
    /// A change of what no project holds.
    void View() {
        GCUndoList.PushAndExec(std::make_unique<Call_cls>([] {}, 0, false),
                               std::make_unique<Call_cls>([] {}, 0, false));
    }
    void Block(const std::vector<int>& values) {
        const UndoBlock_cls block("Block");
        for (const int value : values) Set(value);
    }
    void ExpectAtRest(size_t size, size_t cursor, int value) {
        EXPECT_EQ(GCUndoList.GetSize(), size);
        EXPECT_EQ(GCUndoList.GetCursor(), cursor);
        EXPECT_EQ(GCUndoList.GetBlockDepth(), 0);
        EXPECT_EQ(mValue, value);
    }

    int mValue = 0;
};

TEST_F(UndoManagerTest, StepsAreWalkedWhole) {
    Push(1);
    EXPECT_EQ(mValue, 0) << "pushing runs nothing";
    GCUndoList.ExecCurrent();
    GCUndoList.OpenBlock("Three");
    Set(2);
    Block({3, 4});
    EXPECT_EQ(GCUndoList.GetBlockDepth(), 1);
    GCUndoList.CloseBlock();
    ExpectAtRest(8, 8, 4);
    EXPECT_EQ(GCUndoList.GetRedoCommandType(1), CommandItem_cls::kBlockOpen);
    EXPECT_EQ(GCUndoList.GetUndoCommandType(1), CommandItem_cls::kBlockClose);
    EXPECT_EQ(GCUndoList.GetRedoCommandType(8), -1);

    GCUndoList.UndoCurrent();
    ExpectAtRest(8, 1, 1);
    GCUndoList.ExecCurrent();
    ExpectAtRest(8, 8, 4);
    for (int i = 0; i < 5; ++i) GCUndoList.UndoCurrent();
    ExpectAtRest(8, 0, 0);
    GCUndoList.ExecCurrent();
    Set(9);
    ExpectAtRest(2, 2, 9);
    GCUndoList.ExecCurrent();
    ExpectAtRest(2, 2, 9);
    Push(11);
    mValue = 11;
    GCUndoList.SkipCurrent();
    GCUndoList.UndoCurrent();
    ExpectAtRest(3, 2, 9);

    GCUndoList.Clear();
    Block({1, 2});
    GCUndoList.UndoCurrent();
    mValue = 2;
    GCUndoList.SkipCurrent();
    ExpectAtRest(4, 4, 2);
}

TEST_F(UndoManagerTest, NamesAreThoseOfWholeSteps) {
    EXPECT_EQ(GCUndoList.GetUndoName(), "");
    SetValueCommand("Size", mValue, 1, 0);
    {
        const UndoBlock_cls unnamed;
        SetValueCommand("Colour", mValue, 2, 0);
        SetValueCommand("Shape", mValue, 3, 0);
        EXPECT_EQ(GCUndoList.GetUndoName(), "Colour") << "inside the open block";
    }
    Block({4, 5});
    const wxString names[] = {"Block", "Colour", "Size", ""};
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(GCUndoList.GetUndoName(), names[i]);
        GCUndoList.UndoCurrent();
        EXPECT_EQ(GCUndoList.GetRedoName(), names[i]);
        EXPECT_EQ(GCUndoList.GetUndoName(), names[i + 1]);
    }
}

TEST_F(UndoManagerTest, SequencesThatMakeNoSenseStayHarmless) {
    Set(1);
    GCUndoList.CloseBlock();
    GCUndoList.PushAndExec(std::make_unique<ComBlockClose>(), std::make_unique<ComBlockOpen>());
    ExpectAtRest(1, 1, 1);

    GCUndoList.OpenBlock();
    GCUndoList.CloseBlock();
    ExpectAtRest(1, 1, 1);

    GCUndoList.OpenBlock();
    Set(2);
    GCUndoList.OpenBlock();
    Set(3);
    GCUndoList.UndoCurrent();
    ExpectAtRest(7, 1, 1);
    GCUndoList.CloseBlock();
    GCUndoList.ExecCurrent();
    ExpectAtRest(7, 7, 3);

    // Markers that somebody pushed by hand, one of them without its partner.
    GCUndoList.PushNewCommand(std::make_unique<ComBlockOpen>(), std::make_unique<ComBlockOpen>());
    GCUndoList.SkipCurrent();
    Set(4);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(GCUndoList.GetBlockDepth(), 0);
    EXPECT_EQ(mValue, 0) << "walked to the beginning, no farther";

    GCUndoList.PushNewCommand(nullptr, nullptr);
    GCUndoList.RemoveItem(1000);
    GCUndoList.EndDrag();
    GCUndoList.RestartDrag();
    EXPECT_EQ(GCUndoList.GetCursor(), 0U);
}

TEST_F(UndoManagerTest, RemovedEntriesLeaveWholeBlocks) {
    Set(1);
    Block({2, 3});
    Set(4);
    GCUndoList.UndoCurrent();
    GCUndoList.RemoveItem(4);
    ExpectAtRest(4, 3, 3);
    GCUndoList.RemoveItem(0);
    ExpectAtRest(3, 2, 3);
    GCUndoList.UndoCurrent();
    ExpectAtRest(3, 1, 2);

    GCUndoList.OpenBlock();
    Set(7);
    GCUndoList.RemoveItem(1);
    ExpectAtRest(2, 2, 7);
}

TEST_F(UndoManagerTest, TheSavedStateIsKnownThroughUndoAndRedo) {
    EXPECT_FALSE(GCUndoList.IsModified());
    Set(1);
    EXPECT_TRUE(GCUndoList.IsModified());
    GCUndoList.MarkSaved();
    View();
    EXPECT_FALSE(GCUndoList.IsModified()) << "only what a project holds counts";
    Block({2, 3});
    EXPECT_TRUE(GCUndoList.IsModified());
    GCUndoList.UndoCurrent();
    GCUndoList.UndoCurrent();
    EXPECT_FALSE(GCUndoList.IsModified());
    GCUndoList.UndoCurrent();
    EXPECT_TRUE(GCUndoList.IsModified());
    GCUndoList.ExecCurrent();
    EXPECT_FALSE(GCUndoList.IsModified());

    GCUndoList.UndoCurrent();
    Set(5);
    GCUndoList.UndoCurrent();
    EXPECT_TRUE(GCUndoList.IsModified()) << "the saved state went with the redo history";
    GCUndoList.MarkSaved();
    View();
    GCUndoList.MarkSaved();
    GCUndoList.UndoCurrent();
    View();
    EXPECT_FALSE(GCUndoList.IsModified()) << "what went was the same for a project";

    GCUndoList.BeginDrag();
    Set(6);
    GCUndoList.MarkSaved();
    View();
    GCUndoList.EndDrag();
    EXPECT_FALSE(GCUndoList.IsModified()) << "the drag's markers moved the entries";
    GCUndoList.RemoveItem(GCUndoList.GetSize() - 3);
    EXPECT_FALSE(GCUndoList.IsModified());
    GCUndoList.UndoCurrent();
    EXPECT_EQ(mValue, 6) << "only the view's change was left to undo";

    Set(7);
    GCUndoList.MarkSaved();
    Set(8);
    GCUndoList.RemoveItem(GCUndoList.GetSize() - 1);
    GCUndoList.UndoCurrent();
    EXPECT_TRUE(GCUndoList.IsModified());
}

TEST_F(UndoManagerTest, ADragIsOneStep) {
    Set(1);
    Set(2);
    GCUndoList.UndoCurrent();
    GCUndoList.BeginDrag();
    GCUndoList.EndDrag();
    EXPECT_TRUE(GCUndoList.CanRedo()) << "a click that drags nothing costs nothing";

    GCUndoList.BeginDrag("Drag");
    for (int i = 0; i < 100; ++i) {
        GCUndoList.RestartDrag();
        EXPECT_EQ(mValue, 1);
        Set(100 + i);
    }
    GCUndoList.EndDrag();
    ExpectAtRest(2, 2, 199);

    int updates = 0;
    const int observer = GCUndoList.AddObserver([&](std::uint64_t) { ++updates; });
    GCUndoList.BeginDrag("Drag");
    for (int i = 0; i < 50; ++i) {
        SetValueCommand("Set", mValue, 300 + i, CommandItem_cls::kUpdatePanels);
        Block({400 + i, 500 + i});
    }
    GCUndoList.EndDrag();
    GCUndoList.RemoveObserver(observer);
    EXPECT_EQ(updates, 50) << "the panels follow";
    EXPECT_EQ(GCUndoList.GetUndoName(), "Drag");
    EXPECT_EQ(mValue, 549);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(mValue, 199);
    GCUndoList.ExecCurrent();
    EXPECT_EQ(mValue, 549);
    GCUndoList.UndoCurrent();

    GCUndoList.BeginDrag();
    Block({7, 8});
    GCUndoList.CancelDrag();
    ExpectAtRest(2, 2, 199);

    GCUndoList.BeginDrag();
    Set(7);
    Set(8);
    GCUndoList.UndoCurrent();
    ExpectAtRest(6, 2, 199);
    GCUndoList.RestartDrag();
    GCUndoList.EndDrag();
    GCUndoList.ExecCurrent();
    ExpectAtRest(6, 6, 8);

    // In a block the drag is a part of that step.
    GCUndoList.OpenBlock();
    Set(9);
    GCUndoList.BeginDrag();
    Set(10);
    GCUndoList.RestartDrag();
    EXPECT_EQ(mValue, 9);
    Set(11);
    Set(12);
    GCUndoList.EndDrag();
    GCUndoList.CloseBlock();
    GCUndoList.UndoCurrent();
    EXPECT_EQ(mValue, 8);
}

TEST_F(UndoManagerTest, TheListIsBoundedByWholeSteps) {
    constexpr size_t kMax = UndoManager_cls::kMaxEntries;
    Block({1, 2, 3});
    Set(4);
    GCUndoList.MarkSaved();
    for (size_t i = 6; i < kMax; ++i) Set(static_cast<int>(i));
    ExpectAtRest(kMax, kMax, kMax - 1);
    Set(-1);
    ExpectAtRest(kMax - 4, kMax - 4, -1);
    while (GCUndoList.CanUndo()) GCUndoList.UndoCurrent();
    EXPECT_EQ(mValue, 3) << "the block went whole";
    EXPECT_TRUE(GCUndoList.IsModified());
    GCUndoList.ExecCurrent();
    EXPECT_FALSE(GCUndoList.IsModified());
    while (GCUndoList.CanRedo()) GCUndoList.ExecCurrent();
    for (int i = 0; i < 6; ++i) Set(-2 - i);
    while (GCUndoList.CanUndo()) GCUndoList.UndoCurrent();
    EXPECT_TRUE(GCUndoList.IsModified()) << "the saved state was dropped";
}

TEST_F(UndoManagerTest, AStepLongerThanTheListIsCarriedOutAndForgotten) {
    constexpr int kMany = static_cast<int>(UndoManager_cls::kMaxEntries) + 10;
    for (const bool drag : {false, true}) {
        SCOPED_TRACE(drag);
        GCUndoList.Clear();
        Set(-1);
        drag ? GCUndoList.BeginDrag() : GCUndoList.OpenBlock();
        for (int i = 0; i < kMany; ++i) {
            Set(i);
            ASSERT_LE(GCUndoList.GetSize(), UndoManager_cls::kMaxEntries);
        }
        drag ? GCUndoList.RestartDrag() : GCUndoList.OpenBlock();
        Set(-5);
        GCUndoList.CloseBlock();
        drag ? GCUndoList.EndDrag() : GCUndoList.CloseBlock();
        ExpectAtRest(0, 0, -5);
        GCUndoList.UndoCurrent();
        EXPECT_EQ(mValue, -5);
        EXPECT_TRUE(GCUndoList.IsModified());
        Set(1);
        GCUndoList.UndoCurrent();
        ExpectAtRest(1, 0, -5);
    }
}

TEST_F(UndoManagerTest, AFailingStepIsTakenBackWhole) {
    bool fail = false;
    const auto mayFail = [&] {
        if (fail) throw std::runtime_error("full");
    };
    {
        const UndoBlock_cls block;
        Set(1);
        GCUndoList.PushAndExec(std::make_unique<Call_cls>(mayFail), std::make_unique<Call_cls>(mayFail));
        Set(2);
    }
    fail = true;
    EXPECT_THROW(GCUndoList.UndoCurrent(), std::runtime_error);
    ExpectAtRest(5, 5, 2);
    fail = false;
    GCUndoList.UndoCurrent();
    fail = true;
    EXPECT_THROW(GCUndoList.ExecCurrent(), std::runtime_error);
    ExpectAtRest(5, 0, 0);
    fail = false;
    GCUndoList.ExecCurrent();
    ExpectAtRest(5, 5, 2);
}

TEST_F(UndoManagerTest, CommandsThatUseTheListWhileTheyRunDoNotUpsetIt) {
    const auto meddle = [this] {
        Set(mValue + 1);
        GCUndoList.OpenBlock();
        GCUndoList.UndoCurrent();
        GCUndoList.RemoveItem(0);
        GCUndoList.BeginDrag();
        GCUndoList.ExecUpdate();
        GCUndoList.CloseBlock();
    };
    Set(10);
    GCUndoList.PushAndExec(std::make_unique<Call_cls>(meddle),
                           std::make_unique<Call_cls>([this] { mValue = 10; }));
    ExpectAtRest(2, 2, 11);
    GCUndoList.UndoCurrent();
    ExpectAtRest(2, 1, 10);

    GCUndoList.OpenBlock();
    GCUndoList.PushAndExec(std::make_unique<Call_cls>([] { GCUndoList.Clear(); }),
                           std::make_unique<Call_cls>([] {}));
    GCUndoList.CloseBlock();
    ExpectAtRest(0, 0, 10);
}

TEST_F(UndoManagerTest, RefreshesAreAskedForOncePerStep) {
    const RecordingSink_cls sink;
    std::vector<std::uint64_t> seen;
    int once = 0;
    once = GCUndoList.AddObserver([&](std::uint64_t) { GCUndoList.RemoveObserver(once); });
    const int observer = GCUndoList.AddObserver([&](std::uint64_t bits) { seen.push_back(bits); });
    {
        const UndoBlock_cls block;
        SetValueCommand("a", mValue, 1, CommandItem_cls::kUpdateRedraw);
        SetValueCommand("b", mValue, 2, CommandItem_cls::kUpdateTime);
        EXPECT_TRUE(seen.empty());
    }
    SetValueCommand("c", mValue, 3, 0);
    GCUndoList.UndoCurrent();
    GCUndoList.UndoCurrent();
    EXPECT_EQ(seen, (std::vector<std::uint64_t>{68, 68}));
    EXPECT_EQ(sink.mPosted, (std::vector<int>{6018, 6018}));
    GCUndoList.RemoveObserver(observer);

    float rgba[] = {0.1F, 0.2F, 0.3F};
    SetColorCommand("Colour", rgba, {1.0F, 0.5F, 0.25F, 0.0F}, 0);
    EXPECT_EQ(rgba[2], 0.25F);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(rgba[0], 0.1F);
    SetColorCommand("Colour", rgba, {0.1F, 0.2F, 0.3F, 1.0F}, 0);
    EXPECT_TRUE(GCUndoList.CanRedo()) << "the colour it has already is no step";
}

/// Random work beside a model that keeps the value after every step.
TEST_F(UndoManagerTest, RandomWorkMatchesAModelOfStates) {
    std::mt19937 random(7);
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    std::vector<int> states = {0};
    size_t now = 0;
    int saved = 0;
    int next = 0;
    const auto added = [&] {
        states.resize(now + 1);
        states.push_back(mValue);
        ++now;
    };
    for (int round = 0; round < 20000; ++round) {
        switch (upTo(8)) {
            case 0:
            case 1:
                Set(++next);
                added();
                break;
            case 2: {
                const UndoBlock_cls block;
                for (int i = upTo(4); i >= 0; --i) upTo(3) == 0 ? Block({++next, ++next}) : Set(++next);
            }
                added();
                break;
            case 3:
                GCUndoList.BeginDrag();
                for (int i = upTo(5); i >= 0; --i) {
                    if (upTo(2) == 0) GCUndoList.RestartDrag();
                    upTo(2) == 0 ? Block({++next, ++next}) : Set(++next);
                }
                GCUndoList.EndDrag();
                added();
                break;
            case 4:
                saved = mValue;
                GCUndoList.MarkSaved();
                break;
            case 5:
                GCUndoList.ExecCurrent();
                now = std::min(now + 1, states.size() - 1);
                break;
            default:
                GCUndoList.UndoCurrent();
                if (now > 0) --now;
        }
        ASSERT_EQ(mValue, states[now]) << "round " << round;
        ASSERT_EQ(GCUndoList.CanUndo(), now > 0);
        ASSERT_EQ(GCUndoList.CanRedo(), now + 1 < states.size());
        // Every value is set once only, so equal values are equal states.
        ASSERT_EQ(GCUndoList.IsModified(), mValue != saved) << "round " << round;
        ASSERT_EQ(GCUndoList.GetBlockDepth(), 0);
    }
}

}  // namespace
