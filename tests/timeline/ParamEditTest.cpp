#include "timeline/clsParamEdit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/Keys.h"
#include "support/ReadAll.h"
#include "timeline/clsComParam.h"
#include "timeline/clsUndoManager.h"

namespace {

void SetPeriod(Parameters_cls& parameter, int period) {
    Parameters_cls::State state = parameter.GetState();
    state.periodic = period;
    parameter.SetState(state);
}

class ParamEditTest : public ::testing::Test {
  protected:
    ParamEditTest() { GCUndoList.Clear(); }
    ~ParamEditTest() override {
        GCUndoList.Clear();
        ComParamBase_cls::SetLookUp({});
    }

    int UpTo(size_t n) { return static_cast<int>(mRandom() % n); }
    /// Coarse, so that keys meet often, and now and then none.
    double Number() { return UpTo(50) == 0 ? std::nan("") : UpTo(9) / 8.0; }

    /// Any edit the user can make.
    void EditAtRandom() {
        using P = Parameters_cls;
        P& parameter = mGroup.GetParameter(UpTo(3));
        ParamEdit_cls edit(parameter);
        const int index = UpTo(parameter.GetKeys().size() + 1);
        KeyFrame_cls key;
        key.Set(Number(), static_cast<unsigned int>(UpTo(6)), Number(), Number(), Number(), UpTo(2) == 0);
        const auto moveSelected = [&] {
            mGroup.SelectKeyFrameRegion(Number(), Number());
            mGroup.MoveSelectedKeyByXY(0.125, 0.5);
        };
        const auto deleteSelected = [&](P& p) {
            p.SelectKeyFrame(index);
            p.DeleteSelectedKey();
        };
        const std::function<void()> edits[] = {
            [&] { edit.SetKey(key.mTime, key.mType, key.mValue, key.mVelocity, key.mEaseFactor); },
            [&] { edit.InsertKey(Number() + 0.01); },
            [&] { edit.OverwriteKey(index, key); },
            [&] { edit.MoveKey(index, Number()); },
            [&] { UpTo(4) == 0 ? edit.ClearKeys(Number(), Number()) : edit.DeleteKey(index); },
            [&] { edit.SetKeyType(index, key.mType); },
            [&] {
                edit.SetKeyTypeMulti({{index, key.mType}, {0, 2}, {-1, 3}});
            },
            [&] { edit.SetTimeDependent(key.mSelected); },
            [&] { edit.Change("Period", [&](P& p) { SetPeriod(p, UpTo(3)); }); },
            [&] { edit.Change("Stretch", [&](P& p) { p.RemapKeys(UpTo(2) ? 2.0 : 0.5); }); },
            [&] { edit.Change("Snap", [&](P& p) { p.Quantize(Number()); }); },
            [&] { edit.Change("Paste", [&](P& p) {
                      p.PasteKeys({key, Key(2, 1, 2)}, Number());
                  }); },
            [&] { edit.Change("Delete", deleteSelected); },
            [&] { edit.ChangeGroup("Swap", mGroup, [&] { UpTo(2) ? mGroup.Swap() : mGroup.Flip(); }); },
            [&] { edit.ChangeGroup("Move", mGroup, moveSelected); },
        };
        edits[UpTo(std::size(edits))]();
    }
    std::vector<Parameters_cls::State> GetStates() {
        std::vector<Parameters_cls::State> states;
        for (int i = 0; i < 3; ++i) states.push_back(mGroup.GetParameter(i).GetState());
        return states;
    }

    std::mt19937 mRandom{11};
    ParamGroup_cls mGroup{"Position", 3, {"x", "y", "z"}, "Camera", true};
};

TEST_F(ParamEditTest, AnyEditsLeaveSoundKeysAndAreUndoneAndRedoneExactly) {
    mGroup.GetParameter(1).InitSet(2.0, KeyFrame_cls::kHermiteAuto);
    std::vector<std::vector<Parameters_cls::State>> states = {GetStates()};
    std::vector<size_t> cursors = {0};
    for (int edit = 0; edit < 6000; ++edit) {
        EditAtRandom();
        for (int i = 0; i < 3; ++i) {
            const Parameters_cls& parameter = mGroup.GetParameter(i);
            ASSERT_TRUE(IsSound(parameter) && parameter.GetKeyNumber() > 0) << "edit " << edit;
        }
        const bool step = GCUndoList.GetCursor() != cursors.back();
        ASSERT_TRUE(step || GetStates() == states.back()) << "a change without a step, edit " << edit;
        if (!step) continue;
        states.push_back(GetStates());
        cursors.push_back(GCUndoList.GetCursor());
    }
    EXPECT_GT(states.size(), 2400U);
    for (size_t i = states.size() - 1; i-- > 0;) {
        GCUndoList.UndoCurrent();
        ASSERT_TRUE(GetStates() == states[i]) << "back to step " << i;
    }
    EXPECT_FALSE(GCUndoList.CanUndo());
    for (size_t i = 1; i < states.size(); ++i) {
        GCUndoList.ExecCurrent();
        ASSERT_TRUE(GetStates() == states[i]) << "on to step " << i;
    }
}

TEST_F(ParamEditTest, CommandsFollowAParameterThatIsBuiltAnew) {
    const auto build = [] {
        return std::make_unique<ParamGroup_cls>("Fog", 1, std::vector<wxString>{"Density"}, "Fog", true);
    };
    auto group = build();
    ParamEdit_cls(group->GetParameter(0)).SetKey(0.5, KeyFrame_cls::kLinear, 3.0);
    const wxString edited = group->Serialize();
    group = build();
    const wxString fresh = group->Serialize();
    for (const bool known : {false, true}) {
        if (known)
            ComParamBase_cls::SetLookUp([&](const wxString& id) { return group->GetPCParamFromID(id); });
        GCUndoList.UndoCurrent();
        GCUndoList.ExecCurrent();
        EXPECT_EQ(group->Serialize(), known ? edited : fresh) << "nobody to ask, and the object gone";
    }
    Parameters_cls alone("a", "Nowhere");
    ParamEdit_cls(alone).SetKey(0.5, KeyFrame_cls::kLinear, 3.0);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(alone.GetKeyNumber(), 1) << "not found, but alive";
}

TEST_F(ParamEditTest, SixtyThousandEditsUndoneRedoneAndReadBackGiveTheSameText) {
    ComParamBase_cls::SetLookUp([&](const wxString& id) { return mGroup.GetPCParamFromID(id); });
    std::uniform_real_distribution<double> any(0.0, 1.0);
    SetPeriod(mGroup.GetParameter(1), 1);
    const wxString empty = mGroup.Serialize();
    for (int i = 0; i < 60000; ++i) {
        Parameters_cls& parameter = mGroup.GetParameter(i % 3);
        ParamEdit_cls edit(parameter);
        const int index = UpTo(parameter.GetKeys().size());
        const unsigned int type = parameter.GetKeys()[static_cast<size_t>(index)].mType;
        if (i % 5 < 2) edit.SetKey(any(mRandom), type, any(mRandom));
        if (i % 5 == 2) edit.MoveKey(index, any(mRandom));
        if (i % 5 == 3) edit.SetKeyType(index, (type + 1) % 5);
        if (i % 5 == 4) edit.InsertKey(any(mRandom));
    }
    const wxString full = mGroup.Serialize();
    EXPECT_EQ(GCUndoList.GetCursor(), 60000U);
    while (GCUndoList.CanUndo()) GCUndoList.UndoCurrent();
    EXPECT_TRUE(mGroup.Serialize() == empty);
    while (GCUndoList.CanRedo()) GCUndoList.ExecCurrent();
    EXPECT_TRUE(mGroup.Serialize() == full);
    EXPECT_EQ(ReadAll(mGroup, full + "next=1\n"), "next=1\n");
    EXPECT_TRUE(mGroup.Serialize() == full);
}

}  // namespace
