#include "timeline/clsUndoManager.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <sstream>
#include <stdexcept>

#include "support/RecordingSink.h"
#include "timeline/clsComBlock.h"
#include "timeline/clsCommandSetValue.h"

namespace {

constexpr int kMax = static_cast<int>(UndoManager_cls::kMaxEntries);

struct Call_cls : CommandItem_cls {
    Call_cls(std::function<void()> call, bool changes) : mCall(std::move(call)), mChanges(changes) {}
    void Execute(bool) override { mCall(); }
    bool ChangesProject() const override { return mChanges; }
    std::function<void()> mCall;
    bool mChanges;
};

std::unique_ptr<CommandItem_cls> Call(std::function<void()> call, bool changesProject = true) {
    return std::make_unique<Call_cls>(std::move(call), changesProject);
}

class UndoManagerTest : public ::testing::Test {
  protected:
    UndoManagerTest() { GCUndoList.Clear(); }
    ~UndoManagerTest() override { GCUndoList.Clear(); }

    void Set(int value) { SetValueCommand("Set", mValue, value, CommandItem_cls::kUpdatePanels); }

    /// Works off a script: a number sets the value, the other words are
    ///   ( ) block, u undo, r redo, k push 77 and skip it, v a change that no project holds, S the project
    ///   saved, D R E C a drag's begin, restart, end and cancel, xN entry N removed, c a stray close marker
    ///   pushed by hand, o an open marker pushed without its partner.
    void Run(const std::string& script) {
        static const std::map<char, void (*)()> kWords = {
            {'(', [] { GCUndoList.OpenBlock("Block"); }},
            {')', [] { GCUndoList.CloseBlock(); }},
            {'u', [] { GCUndoList.UndoCurrent(); }},
            {'r', [] { GCUndoList.ExecCurrent(); }},
            {'v', [] { GCUndoList.PushAndExec(Call([] {}, false), Call([] {}, false)); }},
            {'S', [] { GCUndoList.MarkSaved(); }},
            {'D', [] { GCUndoList.BeginDrag("Drag"); }},
            {'R', [] { GCUndoList.RestartDrag(); }},
            {'E', [] { GCUndoList.EndDrag(); }},
            {'C', [] { GCUndoList.CancelDrag(); }},
            {'c',
             [] {
                 GCUndoList.PushAndExec(std::make_unique<ComBlockClose>(), std::make_unique<ComBlockOpen>());
             }},
            {'o', [] {
                 GCUndoList.PushAndExec(std::make_unique<ComBlockOpen>(), std::make_unique<ComBlockOpen>());
             }}};
        std::istringstream words(script);
        for (std::string word; words >> word;) {
            if (const auto known = kWords.find(word[0]); known != kWords.end()) {
                known->second();
            } else if (word[0] == 'x') {
                GCUndoList.RemoveItem(std::stoul(word.substr(1)));
            } else if (word[0] == 'k') {
                GCUndoList.PushNewCommand(Call([] { FAIL() << "run"; }),
                                          Call([this, before = mValue] { mValue = before; }));
                mValue = 77;
                GCUndoList.SkipCurrent();
            } else {
                Set(std::stoi(word));
            }
        }
    }
    /// Value, entries done of all, "*" for a modified project; the depth only where a block is open.
    std::string State() const {
        const int depth = GCUndoList.GetBlockDepth();
        return std::to_string(mValue) + " " + std::to_string(GCUndoList.GetCursor()) + "/" +
               std::to_string(GCUndoList.GetSize()) + (GCUndoList.IsModified() ? "*" : "") +
               (depth ? " in " + std::to_string(depth) : "");
    }

    int mValue = 0;
};

TEST_F(UndoManagerTest, Scripts) {
    const struct {
        const char* what;
        const char* script;
        const char* expected;
    } cases[] = {
        {"skipped", "1 k u", "1 1/2*"},
        {"an open block", "1 ( 2 3", "3 4/4* in 1"},
        {"close without open", ") 1 ) c", "1 1/1*"},
        {"empty blocks leave nothing", "1 ( ( ) )", "1 1/1*"},
        {"undo in an open block takes it back whole", "1 ( 2 ( 3 u", "1 1/7*"},
        {"which can be redone, and closed late", "1 ( 2 ( 3 u ) r", "3 7/7*"},
        {"an open marker without its partner", "1 o 2 u", "0 0/4"},

        {"an undone entry removed", "1 2 u x1 r", "1 1/1*"},
        {"a marker goes with its partner", "1 ( 2 3 ) 4 u x4", "3 3/4*"},
        {"the open block's marker", "1 ( 2 x1 u", "1 1/2*"},

        {"what went was the same for a project", "1 S v S u v", "1 2/2"},
        {"saved at a block's end", "( 1 2 S )", "2 4/4"},
        {"saved in a drag, whose markers come later", "D 1 S v E", "1 4/4"},
        {"removed behind it", "1 S 2 x1", "2 1/1*"},
        {"removed before it", "1 2 S x0", "2 1/1"},

        {"a drag's last state is all that stays", "1 D 2 R 3 R 4 E", "4 2/2*"},
        {"a drag that nobody restarts", "1 D 2 ( 3 4 ) E u", "1 1/8*"},
        {"a click that drags nothing", "1 2 u D E r", "2 2/2*"},
        {"dragged back to the beginning", "1 D 2 R E", "1 1/1*"},
        {"cancelled", "1 D 2 ( 3 4 ) C", "1 1/1*"},
        {"undone under way", "1 D 2 3 u R E r", "3 5/5*"},
        {"part of an open block", "1 ( 2 D 3 R 4 5 E ) u", "1 1/6*"},
        {"restarted inside a block of its own", "1 D ( 2 3 R 4 E", "4 2/2*"},
        {"an entry before it removed", "1 2 D 3 x0 R E", "2 1/1*"},
    };
    for (const auto& c : cases) {
        GCUndoList.Clear();
        mValue = 0;
        Run(c.script);
        EXPECT_EQ(State(), c.expected) << c.what << ": " << c.script;
    }
}

TEST_F(UndoManagerTest, MenusNameWholeSteps) {
    SetValueCommand("Size", mValue, 1, 0);
    GCUndoList.OpenBlock();
    SetValueCommand("Colour", mValue, 2, 0);
    SetValueCommand("Shape", mValue, 3, 0);
    EXPECT_EQ(GCUndoList.GetUndoName(), "Colour") << "inside the open block";
    Run(") ( 4 5 ) D 6 7 E");
    const wxString names[] = {"Drag", "Block", "Colour", "Size", ""};
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(GCUndoList.GetUndoName(), names[i]);
        GCUndoList.UndoCurrent();
        EXPECT_EQ(GCUndoList.GetRedoName(), names[i]);
        EXPECT_EQ(GCUndoList.GetUndoName(), names[i + 1]);
    }
}

TEST_F(UndoManagerTest, TheListIsBoundedByWholeSteps) {
    Run("( 1 2 3 ) 4 S");
    for (int i = 6; i < kMax; ++i) Set(i);
    EXPECT_EQ(State(), "65533 65534/65534*");
    Set(-1);
    EXPECT_EQ(State(), "-1 65530/65530*");
    while (GCUndoList.CanUndo()) GCUndoList.UndoCurrent();
    EXPECT_EQ(State(), "3 0/65530*") << "the block went whole";
    Run("r");
    EXPECT_EQ(State(), "4 1/65530");
    while (GCUndoList.CanRedo()) GCUndoList.ExecCurrent();
    Run("-2 -3 -4 -5 -6 -7");
    while (GCUndoList.CanUndo()) GCUndoList.UndoCurrent();
    EXPECT_EQ(State(), "6 0/65534*") << "the saved state was dropped";
}

TEST_F(UndoManagerTest, AStepLongerThanTheListIsCarriedOutAndForgotten) {
    for (const bool drag : {false, true}) {
        Run(drag ? "-1 D" : "-1 (");
        for (int i = 0; i < kMax + 10; ++i) {
            Set(i);
            ASSERT_LE(GCUndoList.GetSize(), UndoManager_cls::kMaxEntries);
        }
        Run(drag ? "R ( -4 ) -5 E" : "( -4 ) -5 )");
        EXPECT_EQ(State(), "-5 0/0*");
        Run("u 1 u");
        EXPECT_EQ(State(), "-5 0/1*");
    }
}

TEST_F(UndoManagerTest, AFailingStepIsTakenBackWhole) {
    bool fail = false;
    const auto mayFail = [&] {
        if (fail) throw std::runtime_error("full");
    };
    Run("( 1");
    GCUndoList.PushAndExec(Call(mayFail), Call(mayFail));
    Run("2 )");
    for (const bool undo : {true, false}) {
        fail = true;
        EXPECT_THROW(Run(undo ? "u" : "r"), std::runtime_error);
        EXPECT_EQ(State(), undo ? "2 5/5*" : "0 0/5");
        fail = false;
        Run(undo ? "u" : "r");
        EXPECT_EQ(State(), undo ? "0 0/5" : "2 5/5*");
    }
}

TEST_F(UndoManagerTest, CommandsThatUseTheListWhileTheyRunDoNotUpsetIt) {
    const auto meddle = [this] { Run(std::to_string(mValue + 1) + " ( u x0 D ) v"); };
    Set(10);
    GCUndoList.PushAndExec(Call(meddle), Call([this] { mValue = 10; }));
    EXPECT_EQ(State(), "11 2/2*");
    Run("u");
    EXPECT_EQ(State(), "10 1/2*");
    Run("(");
    GCUndoList.PushAndExec(Call([] { GCUndoList.Clear(); }), Call([] {}));
    Run(")");
    EXPECT_EQ(State(), "10 0/0");
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
    Run("u u D 4 5 R 6 E");
    GCUndoList.RemoveObserver(observer);
    EXPECT_EQ(seen, (std::vector<std::uint64_t>{4 + 64, 4 + 64, 2, 2, 2})) << "a drag is followed as it goes";
    EXPECT_EQ(sink.mPosted, (std::vector<int>{6018, 6018}));
}

/// Random work beside a model that keeps the value after every step.
TEST_F(UndoManagerTest, RandomWorkMatchesAModelOfStates) {
    std::mt19937 random(7);
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    std::vector<int> states = {0};
    size_t now = 0;
    int saved = 0;
    int next = 0;
    for (int round = 0; round < 20000; ++round) {
        const int work = upTo(8);
        if (work < 4) {
            std::string script = work < 2 ? "( " : "D ";
            for (int i = upTo(5); i >= 0; --i) {
                if (work >= 2 && upTo(3) == 0) script += "R ";
                const std::string value = std::to_string(++next);
                script += upTo(3) == 0 ? "( 0 " + value + " ) " : value + " ";
            }
            Run(script + (work < 2 ? ")" : "E"));
            states.resize(++now);
            states.push_back(mValue);
        } else if (work == 4) {
            saved = mValue;
            Run("S");
        } else if (work == 5) {
            Run("r");
            now = std::min(now + 1, states.size() - 1);
        } else {
            Run("u");
            now = now > 0 ? now - 1 : 0;
        }
        ASSERT_EQ(mValue, states[now]) << "round " << round;
        ASSERT_EQ(GCUndoList.CanUndo(), now > 0);
        ASSERT_EQ(GCUndoList.CanRedo(), now + 1 < states.size());
        // Every value ends a step once only, so equal values are equal states.
        ASSERT_EQ(GCUndoList.IsModified(), mValue != saved) << "round " << round;
        ASSERT_EQ(GCUndoList.GetBlockDepth(), 0);
    }
}

}  // namespace
