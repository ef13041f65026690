#include "timeline/clsParamEdit.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <random>

#include "timeline/clsComParam.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class ParamEditTest : public ::testing::Test {
  protected:
    void SetUp() override { GCUndoList.Clear(); }
    void TearDown() override {
        GCUndoList.Clear();
        ComParamBase_cls::SetLookUp({});
    }
};

using Keys = std::vector<std::vector<KeyFrame_cls>>;

Keys GetKeys(const ParamGroup_cls& group) {
    Keys keys;
    for (int i = 0; i < group.GetDimension(); ++i) keys.push_back(group.GetParameter(i).GetKeys());
    return keys;
}

/// Any edit the user can make, on coarse times so that keys meet often.
void EditAtRandom(ParamGroup_cls& group, std::mt19937& random) {
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const auto number = [&] { return upTo(9) / 8.0; };
    Parameters_cls& parameter = group.GetParameter(upTo(group.GetDimension()));
    ParamEdit_cls edit(parameter);
    const int index = upTo(parameter.GetKeyNumber() + 1);
    KeyFrame_cls key;
    key.Set(number(), static_cast<unsigned int>(upTo(6)), number(), number(), number(), upTo(2) == 0);
    switch (upTo(14)) {
        case 0:
        case 1:
            return edit.SetKey(key.mTime, key.mType, key.mValue, key.mVelocity, key.mEaseFactor);
        case 2:
            return edit.InsertKey(number() + 0.01);
        case 3:
            return edit.OverwriteKey(index, key);
        case 4:
            return edit.DeleteKey(index);
        case 5:
        case 6:
            return edit.MoveKey(index, number());
        case 7:
            return upTo(4) == 0 ? edit.ClearKeys(number(), number()) : edit.DeleteKey(index);
        case 8:
            return edit.SetKeyType(index, key.mType);
        case 9:
            return edit.SetKeyTypeMulti({{index, key.mType}, {0, 2}, {-1, 3}});
        case 10:
            return edit.SetTimeDependent(upTo(2) == 0);
        case 11:
            return edit.Change("Period", [&](Parameters_cls& p) { p.SetPeriodic(upTo(3)); });
        case 12:
            return ParamEdit_cls::ChangeGroup("Move", group, [&] {
                group.SelectKeyFrameRegion(number(), number());
                group.MoveSelectedKeyByXY(0.125, 0.5);
            });
        default:
            return ParamEdit_cls::ChangeGroup("Swap", group, [&] { upTo(2) ? group.Swap(3) : group.Flip(); });
    }
}

TEST_F(ParamEditTest, UndoAndRedoGiveBackEveryKeyExactly) {
    std::mt19937 random(11);
    ParamGroup_cls group("Position", 3, {"x", "y", "z"}, "Camera", true);
    group.GetParameter(1).InitSet(2.0, KeyFrame_cls::kHermiteAuto);
    std::vector<Keys> states = {GetKeys(group)};
    for (int i = 0; i < 3000; ++i) {
        const size_t before = GCUndoList.GetCursor();
        EditAtRandom(group, random);
        if (GCUndoList.GetCursor() == before) {
            ASSERT_EQ(GetKeys(group), states.back()) << "an edit without a step changes nothing";
        } else {
            states.push_back(GetKeys(group));
        }
    }
    for (size_t i = states.size() - 1; i-- > 0;) {
        GCUndoList.UndoCurrent();
        ASSERT_EQ(GetKeys(group), states[i]) << "back to step " << i;
    }
    EXPECT_FALSE(GCUndoList.CanUndo());
    for (size_t i = 1; i < states.size(); ++i) {
        GCUndoList.ExecCurrent();
        ASSERT_EQ(GetKeys(group), states[i]) << "on to step " << i;
    }
}

TEST_F(ParamEditTest, EditsThatCannotBeMadeLeaveNoStep) {
    Parameters_cls parameter;
    ParamEdit_cls edit(parameter);
    const wxString before = parameter.Serialize();
    for (const double bad : {kNaN, std::numeric_limits<double>::infinity()}) {
        edit.SetKey(bad, 0, 1.0);
        edit.SetKey(0.5, 0, bad);
        edit.InsertKey(bad);
        edit.MoveKey(0, bad);
        edit.ClearKeys(0.0, bad);
    }
    for (const int index : {-1, 1, 1000}) {
        edit.MoveKey(index, 0.5);
        edit.DeleteKey(index);
        edit.SetKeyType(index, 1);
        edit.OverwriteKey(index, {});
    }
    edit.DeleteKey(0);
    edit.SetKeyTypeMulti({{5, 1}});
    EXPECT_EQ(GCUndoList.GetSize(), 0U);
    EXPECT_EQ(parameter.Serialize(), before);
}

TEST_F(ParamEditTest, CommandsFollowAParameterThatIsBuiltAnew) {
    auto group = std::make_unique<ParamGroup_cls>("Fog", 1, std::vector<wxString>{"Density"}, "Fog", true);
    ParamEdit_cls(group->GetParameter(0)).SetKey(0.5, KeyFrame_cls::kLinear, 3.0);
    const wxString edited = group->Serialize();

    // Without anybody to ask and with the object gone there is nothing to do.
    group = std::make_unique<ParamGroup_cls>("Fog", 1, std::vector<wxString>{"Density"}, "Fog", true);
    const wxString fresh = group->Serialize();
    GCUndoList.UndoCurrent();
    GCUndoList.ExecCurrent();
    EXPECT_EQ(group->Serialize(), fresh);

    ComParamBase_cls::SetLookUp([&](const wxString& id) { return group->GetPCParamFromID(id); });
    GCUndoList.UndoCurrent();
    GCUndoList.ExecCurrent();
    EXPECT_EQ(group->Serialize(), edited);

    // One that is not found, but lives.
    Parameters_cls alone("a", "Nowhere");
    ParamEdit_cls(alone).SetKey(0.5, KeyFrame_cls::kLinear, 3.0);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(alone.GetKeyNumber(), 1);
}

TEST_F(ParamEditTest, SixtyThousandEditsUndoneAndRedoneGiveTheSameText) {
    ParamGroup_cls group("Path", 3, {"x", "y", "z"}, "Path", true);
    ComParamBase_cls::SetLookUp([&](const wxString& id) { return group.GetPCParamFromID(id); });
    std::mt19937 random(3);
    std::uniform_real_distribution<double> any(0.0, 1.0);
    const wxString empty = group.Serialize();
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 60000; ++i) {
        Parameters_cls& parameter = group.GetParameter(i % 3);
        ParamEdit_cls edit(parameter);
        const int index = static_cast<int>(random() % static_cast<unsigned>(parameter.GetKeyNumber()));
        switch (i % 5) {
            case 0:
            case 1:
                edit.SetKey(any(random), static_cast<unsigned int>(random() % 5), any(random));
                break;
            case 2:
                edit.MoveKey(index, any(random));
                break;
            case 3:
                edit.SetKeyType(index, static_cast<unsigned int>(random() % 5));
                break;
            default:
                edit.InsertKey(any(random));
        }
    }
    const wxString full = group.Serialize();
    const size_t steps = GCUndoList.GetCursor();
    while (GCUndoList.CanUndo()) GCUndoList.UndoCurrent();
    const wxString undone = group.Serialize();
    while (GCUndoList.CanRedo()) GCUndoList.ExecCurrent();
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin;
    EXPECT_TRUE(undone == empty);
    EXPECT_TRUE(group.Serialize() == full);
    EXPECT_GT(steps, 55000U);
    RecordProperty("seconds", std::to_string(spent.count()));
    EXPECT_LT(spent.count(), 60.0) << "editing, undoing and redoing";
}

}  // namespace
