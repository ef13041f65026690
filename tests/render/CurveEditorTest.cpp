#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "data/clsPDataSequence.h"
#include "interp/clsSnapData.h"
#include "render/clsColorCurveCtrl.h"
#include "render/clsColorCurveEdit.h"
#include "render/clsColorCurveTemplateSet.h"
#include "render/clsColorLegend.h"
#include "render/clsCurveValues.h"
#include "render/clsDrawOption.h"
#include "render/clsGLAttribute.h"
#include "render/clsValueHistogram.h"
#include "timeline/clsUndoManager.h"

namespace {

/// A curve of black keys at these positions. Undo commands look at curves later, so the list is emptied
/// first.
struct EditedCurve_cls {
    explicit EditedCurve_cls(const std::vector<double>& positions) {
        std::vector<ColorCurve_cls::Key> keys;
        for (const double position : positions) keys.push_back({position, 0, 0, 0, 1});
        curve = std::make_unique<ColorCurve_cls>("P", "A curve", "1 1 1 1", keys);
    }
    ~EditedCurve_cls() { GCUndoList.Clear(); }

    std::unique_ptr<ColorCurve_cls> curve;
};

TEST(CurveEditorTest, EditsAreStepsThatCanBeTakenBack) {
    using Edit = ColorCurveEdit_cls;
    static const ColorCurveTemplateSet_cls templates;
    struct Case {
        const char* name;
        std::function<void(Edit&)> edit;
        std::vector<double> positions;  ///< afterwards, from 0 0.5 1
        bool step = true;
    };
    const Color4 red{1, 0, 0, 0.5F};
    const std::vector<Case> cases = {
        {"insert", [&](Edit& edit) { edit.InsertKey(0.25, red); }, {0, 0.25, 0.5, 1}},
        {"insert on a key", [&](Edit& edit) { edit.InsertKey(0.5, red); }, {0, 0.5, 1}},
        {"insert outside", [&](Edit& edit) { edit.InsertKey(-1.0, red); }, {0, 0.5, 1}, false},
        {"insert nowhere", [&](Edit& edit) { edit.InsertKey(NAN, red); }, {0, 0.5, 1}, false},
        {"delete", [](Edit& edit) { edit.DeleteKey(0.5); }, {0, 1}},
        {"delete nothing", [](Edit& edit) { edit.DeleteKey(0.6); }, {0, 0.5, 1}, false},
        {"move", [](Edit& edit) { edit.MoveKey(0.5, 0.75); }, {0, 0.75, 1}},
        {"move past a neighbour", [](Edit& edit) { edit.MoveKey(0.5, 2.0); }, {0, 0.999, 1}},
        {"move the first", [](Edit& edit) { edit.MoveKey(0.0, 0.7); }, {0.499, 0.5, 1}},
        {"move nothing", [](Edit& edit) { edit.MoveKey(0.4, 0.7); }, {0, 0.5, 1}, false},
        {"move to no number", [](Edit& edit) { edit.MoveKey(0.5, NAN); }, {0, 0.5, 1}, false},
        {"template", [](Edit& edit) { edit.ApplyTemplate(templates.Get(8)); }, {0, 0.645, 1}},
        {"scaling", [](Edit& edit) { edit.SetScaling(3, 7); }, {0, 0.5, 1}},
    };
    for (const Case& one : cases) {
        EditedCurve_cls edited({0, 0.5, 1});
        const wxString before = edited.curve->Serialize();
        Edit edit(*edited.curve);
        one.edit(edit);
        const std::vector<double> positions = edit.GetPositions();
        ASSERT_EQ(positions.size(), one.positions.size()) << one.name;
        for (size_t i = 0; i < positions.size(); ++i)
            EXPECT_NEAR(positions[i], one.positions[i], 1e-9) << one.name;
        EXPECT_EQ(GCUndoList.CanUndo(), one.step) << one.name;
        const wxString after = edited.curve->Serialize();
        GCUndoList.UndoCurrent();
        EXPECT_EQ(edited.curve->Serialize(), before) << one.name;
        EXPECT_FALSE(GCUndoList.CanUndo()) << one.name << " is more than one step";
        GCUndoList.ExecCurrent();
        EXPECT_EQ(edited.curve->Serialize(), after) << one.name;
    }
}

TEST(CurveEditorTest, ATemplateLeavesTheSettingsAndAPasteTakesThem) {
    EditedCurve_cls edited({0, 1});
    EditedCurve_cls source({0, 0.3, 1});
    const auto fill = [](ColorCurve_cls& curve, float number) {
        curve.mUseColorCurve.mValue = number > 1.0F;
        curve.mConstantColor.mValue[2] = number / 4;
        curve.mScalingMin.mValue = -number;
        curve.mScalingMax.mValue = number;
        curve.mDependType.mValue = static_cast<unsigned int>(number);
    };
    fill(*edited.curve, 1);
    fill(*source.curve, 3);
    ColorCurveEdit_cls(*edited.curve).ApplyTemplate(*source.curve);
    EXPECT_EQ(ColorCurveEdit_cls(*edited.curve).GetPositions().size(), 3U);
    EXPECT_TRUE(!edited.curve->IsOn() && edited.curve->mScalingMin.mValue == -1 &&
                edited.curve->mDependType.mValue == 1);

    ColorCurveCtrl_cls ctrl;
    ctrl.Paste(*edited.curve);
    ctrl.Copy(*source.curve);
    fill(*source.curve, 2);  // the copy is not touched by later changes
    const wxString before = edited.curve->Serialize();
    ctrl.Paste(*edited.curve);
    EXPECT_TRUE(edited.curve->IsOn() && edited.curve->mScalingMin.mValue == -3 &&
                edited.curve->mDependType.mValue == 3 && edited.curve->mConstantColor.mValue[2] == 0.75F);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(edited.curve->Serialize(), before);
}

TEST(CurveEditorTest, ValuesAreCountedWhereTheyAre) {
    std::vector<float> hundred;
    for (int i = 0; i <= 100; ++i) hundred.push_back(static_cast<float>(i));
    std::shuffle(hundred.begin(), hundred.end(), std::mt19937(5));
    hundred.push_back(NAN);
    hundred.push_back(INFINITY);
    const ValueHistogram_cls histogram(hundred);
    EXPECT_EQ(histogram.GetCount(), 101U);
    EXPECT_EQ(histogram.GetRange(), (ValueHistogram_cls::Range{0, 100}));
    EXPECT_EQ(histogram.GetPartRange(0.01, 0.99), (ValueHistogram_cls::Range{1, 99}));

    struct Case {
        ValueHistogram_cls::Range range;
        std::vector<float> bins;
    };
    const float root = std::sqrt(1.0F / 2.0F);
    for (const Case& one :
         {Case{{0, 4}, {root, root, root, 1}}, Case{{4, 0}, {root, root, root, 1}},
          Case{{-2, 2}, {0, 0, root, 1}}, Case{{7, 7}, {0, 0, 0, 0}}, Case{{0, INFINITY}, {0, 0, 0, 0}}})
        EXPECT_EQ(ValueHistogram_cls({0, 1, 2, 3, 4}).GetBins(one.range, 4), one.bins) << one.range.min;
    EXPECT_EQ(ValueHistogram_cls({NAN}).GetRange(), (ValueHistogram_cls::Range{0, 1}));
}

TEST(CurveEditorTest, CurvesAreFedByTheParticlesTheyColour) {
    const std::vector<float> position = {3, 4, 0, 1, 0, 0, 0, 0, 2, 0, 0, 0};
    const std::vector<float> rates(12, 0.0F);
    const std::vector<float> radius = {1, 2, 3, 4};
    const std::vector<float> value1 = {10, 20, 30, 40};
    const std::vector<uint8_t> type = {0, 1, 1, 7};
    const std::vector<int32_t> id = {5, 6, 7, 8};
    PDataSequence_cls sequence(0);
    SnapSource_cls source{.count = 4,
                          .position = position.data(),
                          .velocity = rates.data(),
                          .radius = radius.data(),
                          .radiusWork = rates.data(),
                          .value1 = value1.data(),
                          .value1Work = rates.data(),
                          .type = type.data(),
                          .id = id.data()};
    struct Case {
        unsigned int depend;
        int attribute;
        unsigned int classify;
        int step;
        std::vector<float> values;
    };
    for (const Case& one :
         {Case{ColorCurve_cls::kValue1, 0, 1, 1, {10, 40}},  // type 7 counts as 0
          Case{ColorCurve_cls::kRadius, 1, 1, 1, {2, 3}},
          Case{ColorCurve_cls::kPosition, 0, 0, 1, {5, 1, 2, 0}}, Case{ColorCurve_cls::kID, 1, 1, 1, {6, 7}},
          Case{ColorCurve_cls::kValue1, 0, 0, 3, {10, 40}}, Case{ColorCurve_cls::kValue1, 3, 1, 1, {}},
          Case{99, 0, 1, 1, {}}}) {
        DrawOption_cls option;
        option.mClassify.mValue = one.classify;
        ColorCurve_cls& curve = sequence.GetAttribute(one.attribute).GetCurve(SnapAttribute_cls::kColor);
        curve.mDependType.mValue = one.depend;
        const SnapData_cls state(source, sequence.GetSnapAttributes(), 0.0, one.step);
        EXPECT_EQ(CollectCurveValues(curve, sequence, state, option), one.values)
            << "depend " << one.depend << ", attribute " << one.attribute << ", step " << one.step;
    }
}

TEST(CurveEditorTest, LegendsHaveRoundNumbers) {
    struct Case {
        float min, max;
        std::vector<const char*> texts;
    };
    for (const Case& one :
         {Case{0, 1, {"0", "0.2", "0.4", "0.6", "0.8", "1"}}, Case{-3, 7, {"-2", "0", "2", "4", "6"}},
          Case{100, 0, {"0", "20", "40", "60", "80", "100"}},
          Case{0, 3e-5F, {"0", "1e-05", "2e-05", "3e-05"}}, Case{2, 2, {}}, Case{0, INFINITY, {}}}) {
        EditedCurve_cls edited({0, 1});
        edited.curve->mUseColorCurve.mValue = true;
        edited.curve->mScalingMin.mValue = one.min;
        edited.curve->mScalingMax.mValue = one.max;
        const auto legend = ColorLegend_cls::Of(*edited.curve, "km/s", 16, 6);
        EXPECT_EQ(legend.title, "VALUE1 [km/s]");
        EXPECT_EQ(legend.colors.size(), 64U);
        ASSERT_EQ(legend.ticks.size(), one.texts.size()) << one.min << " to " << one.max;
        for (size_t i = 0; i < one.texts.size(); ++i) {
            EXPECT_EQ(legend.ticks[i].text, one.texts[i]);
            double value = 0.0;
            legend.ticks[i].text.ToCDouble(&value);
            EXPECT_NEAR(one.min + legend.ticks[i].position * (one.max - one.min), value,
                        1e-6 * std::abs(one.max - one.min));
        }
        edited.curve->mUseColorCurve.mValue = false;
        EXPECT_TRUE(ColorLegend_cls::Of(*edited.curve, {}, 16, 6).ticks.empty());
    }
}

}  // namespace
