#include "timeline/clsParamGroup.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Keys.h"
#include "support/ReadAll.h"

namespace {

using Doubles = std::vector<double>;

/// A position with a ramp from 0 to 1, 2 and 3.
struct Position {
    explicit Position(const wxString& name = "Position", std::shared_ptr<const ParamHost_cls> host = {})
        : group(name, 3, {"X", "Y", "Z"}, name, true, std::move(host)) {
        for (int i = 0; i < 3; ++i) group.GetParameter(i).SetState({{Key(0, 0), Key(1, i + 1)}, true, 0});
    }
    ParamGroup_cls group;
};

TEST(ParamGroupTest, ATreeWrittenAndReadBackIsTheSame) {
    ParamGroup_cls zoom("Zoom", 1, {"Zoom"}, "Zoom", false);
    Position position;
    position.group.SetShy(true);
    for (const int count : {3, 4, 1}) position.group.Swap(count);
    EXPECT_EQ(position.group.GetInterpolatedValue(1.0, 0.0), (Doubles{2, 3, 1})) << "rotated once";
    EXPECT_TRUE(position.group.Serialize().StartsWith(
        "-ParamGroup=Position\ndimension=3\nshyMode=1\nStart\nParameter_X\n"));
    ParamGroup_cls tree("Camera");
    EXPECT_TRUE(tree.AddChild(zoom) && tree.AddChild(position.group));
    const wxString text = tree.Serialize();
    EXPECT_EQ(text, zoom.Serialize() + position.group.Serialize()) << "a container writes nothing of its own";

    Position otherPosition;
    ParamGroup_cls other("Other");
    ParamGroup_cls otherZoom("Zoom", 1, {"Zoom"}, "Zoom", false);
    EXPECT_TRUE(other.AddChild(otherZoom) && other.AddChild(otherPosition.group));
    const wxString before = other.Serialize();
    wxString lower = text;
    lower.Replace("Position", "position");
    ReadAll(other, lower);
    EXPECT_EQ(other.Serialize(), before) << "the name's case counts";
    EXPECT_EQ(ReadAll(other, "a=1\n" + text + "b=2\n"), "a=1\nb=2\n");
    EXPECT_EQ(other.Serialize(), text);
    Position copy;
    copy.group.CopyParamGroupFromP(position.group);
    EXPECT_EQ(copy.group.Serialize(), position.group.Serialize());
}

TEST(ParamGroupTest, DamagedTextLosesNoMoreThanItself) {
    const wxString x = "Parameter_X\nitemnum 1\n0.1 0 1 0 0 \n";
    const wxString y = "Parameter_Y\nitemnum 1\n0.2 0 2 0 0 \n";
    const wxString z = "Parameter_Z\nitemnum 1\n0.3 0 3 0 0 \n";
    struct Case {
        const char* name;
        wxString text;
        Doubles expected;  // value of each component's first key
        const char* left;  // for other readers
    };
    const wxString head = "-ParamGroup=Position\n";
    const wxString start = head + "dimension=2000000000\nunknown=1\nStart\n";
    const Case cases[] = {
        {"sound but for its dimension", start + x + y + z + "a=1\n", {1, 2, 3}, "a=1\n"},
        {"no Start", head + "dimension=3\n" + x + y + z, {1, 2, 3}, ""},
        {"one component missing", start + x + z + "a=1\n", {1, 0, 3}, "a=1\n"},
        {"no components", start + "a=1\n---Marker\n", {0, 0, 0}, "a=1\n---Marker\n"},
        {"garbage between", start + x + "itemnum 5\n\xff\n0.5 0 9 0 0\n" + y + z, {1, 2, 3}, ""},
        {"nested in itself", head + start + x + start + x + y + z, {1, 2, 3}, ""},
        {"another inside", start + x + "-ParamGroup=A\nStart\n", {1, 0, 0}, "-ParamGroup=A\nStart\n"},
        {"end in the head", head + "dimension=3", {0, 0, 0}, ""},
        {"end in a component", start + x + "Parameter_Y\nitemnum 2\n0.2 0 2 0 0", {1, 2, 0}, ""},
    };
    for (const Case& c : cases) {
        Position position;
        EXPECT_EQ(ReadAll(position.group, c.text), c.left) << c.name;
        Doubles firstValues;
        for (int i = 0; i < 3; ++i) firstValues.push_back(position.group.GetParameter(i).GetKeyFrameValue(0));
        EXPECT_EQ(firstValues, c.expected) << c.name;
        EXPECT_TRUE(position.group.Serialize().Contains("dimension=3\n")) << c.name;
    }
}

TEST(ParamGroupTest, TheLastChildAnswersALookUp) {
    Position first("A");
    Position second("B");
    ParamGroup_cls tree("Tree");
    tree.AddChild(first.group);
    EXPECT_EQ(tree.GetPCParamFromID("A.Y"), &first.group.GetParameter(1));
    tree.AddChild(second.group);
    EXPECT_EQ(tree.GetPCParamFromID("B.Z"), &second.group.GetParameter(2));
    EXPECT_EQ(tree.GetPCParamFromID("A.Y"), nullptr) << "found in the first child, replaced by the last";

    tree.ReplaceID("B", "B.C");
    EXPECT_EQ(tree.GetPCParamFromID("B.C.Z"), &second.group.GetParameter(2));
    tree.ReplaceID("B.C", "D");
    tree.ReplaceID("D.", "E");
    EXPECT_EQ(second.group.GetParameter(0).GetID(), "D.X") << "whole names only";
}

TEST(ParamGroupTest, GroupsLeaveTheTreeWhenTheyGo) {
    auto outer = std::make_unique<ParamGroup_cls>("Outer");
    ParamGroup_cls inner("Inner");
    EXPECT_TRUE(outer->AddChild(inner));
    EXPECT_FALSE(inner.AddChild(*outer)) << "no ring";
    EXPECT_FALSE(outer->AddChild(*outer));
    Position stays;
    {
        Position goes;
        EXPECT_TRUE(inner.AddChild(goes.group));
        EXPECT_FALSE(outer->AddChild(goes.group)) << "one parent";
        EXPECT_TRUE(inner.AddChild(stays.group));
    }
    EXPECT_EQ(inner.GetChildren(), std::vector<ParamGroup_cls*>{&stays.group});
    outer->RemoveChild(inner);
    EXPECT_TRUE(outer->GetChildren().empty());
    EXPECT_TRUE(outer->AddChild(inner));
    outer.reset();
    EXPECT_EQ(inner.GetParent(), nullptr);
}

TEST(ParamGroupTest, ValuesAreEvaluatedOrRemembered) {
    Position position;
    EXPECT_EQ(position.group.GetInterpolatedValue(0.5, 0.0), (Doubles{0.5, 1, 1.5}));
    Parameters_cls::msCurrentDoubleIndex = 0.25;
    float colour[4] = {9, 9, 9, 9};
    position.group.GetInterpolatedValue4Fast(colour, -1.0, 0.0);
    EXPECT_EQ(std::vector<float>(colour, colour + 4), (std::vector<float>{0.25F, 0.5F, 0.75F, 0.0F}));
    EXPECT_EQ(position.group.GetInterpolatedValue(), (Doubles{0.5, 1, 1.5})) << "not evaluated again";
    Parameters_cls::msCurrentDoubleIndex = 0.0;
}

TEST(ParamGroupTest, AKeyIsSetOnAllComponents) {
    Parameters_cls::SetFrameNumber(100, 1);
    Position position;
    ParamGroup_cls& group = position.group;
    const double values[] = {7, 8, 9};
    group.SetKeyFrame(values, false, 0.5);
    EXPECT_FALSE(group.IsKeyFrameAll(0.5));
    EXPECT_EQ(group.GetInterpolatedValue(), (Doubles{7, 8, 9})) << "shown until the next evaluation";
    group.SetKeyFrame(values, true, 0.5);
    group.SetKeyFrame(values, true, 0.502, 0.005);
    EXPECT_TRUE(group.IsKeyFrameAll(0.5));
    EXPECT_EQ(group.GetParameter(2).GetKeyNumber(), 3) << "the key of the frame is met";

    EXPECT_EQ(group.GetInterpolatedValue(0.5, 0.0), (Doubles{7, 8, 9}));
    EXPECT_FALSE(group.SetKeyFrameIfChanged(0.5));
    group.GetParameter(1).SetCurrentValue(80);
    EXPECT_TRUE(group.SetKeyFrameIfChanged(0.5));
    EXPECT_EQ(group.GetInterpolatedValue(0.5, 0.0), (Doubles{7, 80, 9}));

    for (const double t : {0.5, 0.0, 1.0}) group.DeleteKey(t);
    EXPECT_EQ(group.GetParameter(0).GetKeyNumber(), 1) << "the only key stays";
    group.SetTimeDependent(false);
    group.SetKeyFrame(values, true, 0.3);
    EXPECT_EQ(group.GetParameter(0).GetKeyNumber(), 1) << "a constant takes no second key";
    EXPECT_EQ(group.GetInterpolatedValue(0.9, 0.0), (Doubles{7, 8, 9}));
}

TEST(ParamGroupTest, SelectedKeysAreMovedAndPastedTogether) {
    wxString clipboard;
    auto host = std::make_shared<ParamHost_cls>();
    host->putClipboard = [&](const wxString& text) { clipboard = text; };
    host->getClipboard = [&] { return clipboard; };
    Position from("A", host);
    EXPECT_EQ(from.group.SelectKeyByXY(1.0, 2.5, 0.01, 0.6), 2);
    from.group.MoveSelectedKeyByXY(-0.5, 10);
    EXPECT_EQ(from.group.GetInterpolatedValue(0.5, 0.0), (Doubles{0.5, 12, 13}));
    from.group.CopyKeyFrameToClipBoard();

    Position to("B", host);
    EXPECT_EQ(to.group.PasteKeyFrameFromClipBoard(0.25), 2);
    EXPECT_EQ(to.group.GetInterpolatedValue(0.25, 0.0), (Doubles{0.25, 12, 13})) << "each into its component";
    EXPECT_EQ(to.group.DeleteSelectedKey(), 2);
}

}  // namespace
