#include <gtest/gtest.h>

#include <cmath>

#include "render/clsColorCurve.h"
#include "render/clsColorCurveTemplateSet.h"
#include "seam/clsLineStream.h"
#include "seam/clsTextCoding.h"
#include "support/Printing.h"
#include "timeline/clsUndoManager.h"

namespace {

using Color = std::array<float, 4>;

Color At(const ColorCurve_cls& curve, float t) {
    Color color{};
    curve.GetColor4fNormal(color.data(), t);
    return color;
}

Color OfValue(const ColorCurve_cls& curve, float value) {
    Color color{};
    curve.GetColor4fScaled(color.data(), value);
    return color;
}

/// Copies a text into a curve line by line, as a project is read; returns the number of lines that were
/// taken.
int Read(ColorCurve_cls& curve, const wxString& text) {
    LineStream_cls stream(ToBytes(text));
    wxString line;
    int taken = 0;
    while (stream.ReadLine(line)) taken += curve.ReadStrLine(stream, line) ? 1 : 0;
    return taken;
}

std::unique_ptr<ColorCurve_cls> Switched(size_t pattern, const wxString& prefix = "P") {
    static const ColorCurveTemplateSet_cls templates;
    auto curve = std::make_unique<ColorCurve_cls>(prefix, "A curve", "0.2 0.4 0.6 0.8");
    curve->CopyColorFromP(templates.Get(pattern), true);
    curve->mUseColorCurve.mValue = true;
    return curve;
}

TEST(ColorCurveTest, ANewCurveIsOffAndRunsFromGreenToRed) {
    Parameters_cls::msCurrentDoubleIndex = 0.0;
    ColorCurve_cls curve("P", "A curve", "0.2 0.4 0.6 0.8");
    curve.PreCalcScaleFactor();
    for (const float value : {0.3F, -1.0F, NAN, INFINITY})
        EXPECT_EQ(OfValue(curve, value), (Color{0.2F, 0.4F, 0.6F, 0.8F}));
    curve.mUseColorCurve.mValue = true;
    EXPECT_EQ(At(curve, 0.25F), (Color{0.25F, 0.75F, 0.0F, 1.0F}));
    EXPECT_EQ(At(curve, -3.0F), (Color{0.0F, 1.0F, 0.0F, 1.0F}));
    EXPECT_EQ(At(curve, 2.0F), (Color{1.0F, 0.0F, 0.0F, 1.0F}));
    EXPECT_EQ(curve.GetParamGroup().GetName(), "P ColorCurve");
    EXPECT_EQ(curve.GetParamGroup().GetParameter(3).GetID(), "P ColorCurve.A");

    // The first key is set at the current time; but a position of -1 is a position like others, and keys
    // are not snapped to the frames of the scene.
    Parameters_cls::SetFrameNumber(2, 1);
    Parameters_cls::msCurrentDoubleIndex = 0.5;
    ColorCurve_cls late("P", "", "0 0 0 0");
    late.mUseColorCurve.mValue = true;
    EXPECT_EQ(late.GetParamGroup().GetParameter(0).GetKeyNumber(), 2);
    EXPECT_EQ(At(late, 0.75F), (Color{0.5F, 0.5F, 0.0F, 1.0F}));
    EXPECT_EQ(At(curve, -1.0F), (Color{0.0F, 1.0F, 0.0F, 1.0F}));
    EXPECT_EQ(At(curve, 0.875F), (Color{0.875F, 0.125F, 0.0F, 1.0F}));
    Parameters_cls::msCurrentDoubleIndex = 0.0;
    Parameters_cls::SetFrameNumber(0, 1);
}

TEST(ColorCurveTest, ValuesAreScaled) {
    struct Case {
        float min, max, value, t, maxAfter;
    };
    for (const Case& one :
         {Case{0, 1, 0.25F, 0.25F, 1}, Case{10, 30, 15, 0.25F, 30}, Case{30, 10, 15, 0.75F, 10},
          Case{5, 5, 5.5F, 0.5F, 6}, Case{1e9F, 1e9F, 1e9F, 0.0F, 1e9F}}) {
        const auto curve = Switched(1);
        curve->mScalingMin.mValue = one.min;
        curve->mScalingMax.mValue = one.max;
        curve->PreCalcScaleFactor();
        EXPECT_EQ(OfValue(*curve, one.value), (Color{one.t, 1.0F - one.t, 0.0F, 1.0F}))
            << one.min << " " << one.max;
        EXPECT_EQ(curve->mScalingMax.mValue, one.maxAfter);
    }
}

TEST(ColorCurveTest, TheTemplatesHaveTheirKeys) {
    const ColorCurveTemplateSet_cls templates;
    ASSERT_EQ(templates.GetNumber(), 9U);
    struct Case {
        size_t i;
        const char* name;
        int keys;
        float t;
        Color color;
    };
    for (const Case& one :
         {Case{0, "Red Yellow", 2, 0.5F, {1, 0.5F, 0, 1}}, Case{1, "Green Red", 2, 0, {0, 1, 0, 1}},
          Case{2, "Black White", 2, 0.25F, {0.25F, 0.25F, 0.25F, 1}},
          Case{3, "Cold Color", 2, 1, {0, 1, 1, 1}}, Case{4, "Moderate Gray", 2, 1, {0.75F, 0.75F, 0.75F, 1}},
          Case{5, "Spectrum", 7, 0.5F, {0, 0.78F, 0, 1}},
          Case{6, "SpectrumRGB", 5, 0.25F, {0.5F, 0, 0.5F, 1}},
          Case{7, "Incandescent", 5, 1, {0.97F, 0.97F, 0.83F, 1}},
          Case{8, "ColdSteel", 3, 0, {1, 1, 1, 1}}}) {
        ColorCurve_cls curve("", "", "1 1 1 1");
        curve.CopyColorFromP(templates.Get(one.i), true);
        curve.mUseColorCurve.mValue = true;
        EXPECT_EQ(templates.Get(one.i).GetDisplayName(), one.name);
        EXPECT_EQ(curve.GetParamGroup().GetParameter(0).GetKeyNumber(), one.keys);
        EXPECT_EQ(At(curve, one.t), one.color) << one.name;
    }
}

TEST(ColorCurveTest, ColoursForTheWindows) {
    const wxColour background(200, 100, 0);
    const auto curve = Switched(4);  // grey 0.5 to 0.75
    curve->GetParamGroup().GetParameter(3).SetKey(0.0, KeyFrame_cls::kLinear, 0.25);
    curve->GetParamGroup().GetParameter(0).SetKey(1.0, KeyFrame_cls::kLinear, 7.0);
    curve->GetParamGroup().GetParameter(1).SetKey(1.0, KeyFrame_cls::kLinear, -7.0);
    EXPECT_EQ(curve->GetWXColor(background, 0.0, true), wxColour(127, 127, 127));
    EXPECT_EQ(curve->GetWXColor(background, 0.0, false), wxColour(181, 106, 31));
    EXPECT_EQ(curve->GetWXColor(background, 1.0, true), wxColour(255, 0, 191)) << "kept between 0 and 255";
    curve->mUseColorCurve.mValue = false;
    EXPECT_EQ(curve->GetWXColor(background, 0.5, false), wxColour(51, 102, 153));
}

TEST(ColorCurveTest, FlippingAndSwappingCanBeUndone) {
    GCUndoList.Clear();
    const auto curve = Switched(5);
    const wxString keys = curve->GetParamGroup().Serialize();
    const Color before = At(*curve, 0.3F);

    curve->Flip();
    for (size_t k = 0; k < 4; ++k) EXPECT_NEAR(At(*curve, 0.7F)[k], before[k], 1e-6F);
    EXPECT_EQ(curve->GetParamGroup().GetParameter(0).GetKeys()[1].mTime, 0.167);
    GCUndoList.UndoCurrent();
    EXPECT_EQ(curve->GetParamGroup().Serialize(), keys);
    GCUndoList.ExecCurrent();
    curve->Flip();
    EXPECT_EQ(curve->GetParamGroup().Serialize(), keys);

    curve->SwapRGB();
    EXPECT_EQ(At(*curve, 0.3F), (Color{before[1], before[2], before[0], before[3]}));
    GCUndoList.UndoCurrent();
    EXPECT_EQ(curve->GetParamGroup().Serialize(), keys);
    for (int i = 0; i < 3; ++i) curve->SwapRGB();
    EXPECT_EQ(curve->GetParamGroup().Serialize(), keys);
    GCUndoList.Clear();
}

TEST(ColorCurveTest, CopyingTakesKeysAndIfAskedSettings) {
    const auto source = Switched(7, "From");
    source->mScalingMax.mValue = 42.0F;
    source->mDependType.mValue = ColorCurve_cls::kVelocity;
    ColorCurve_cls target("To", "", "0.1 0.2 0.3 0.4");
    const wxString settings = target.Serialize().BeforeFirst('-');
    target.CopyColorFromP(*source, true);
    EXPECT_EQ(target.Serialize().BeforeFirst('-'), settings);
    target.CopyColorFromP(*source, false);
    // Under its own keys: the lines of another curve would be read into that one.
    EXPECT_EQ(
        target.Serialize(),
        "ToUseColorCurve=1\nToConstantColor=0.200000 0.400000 0.600000 0.800000\nToScalingMin=0.000000\n"
        "ToScalingMax=42.000000\nToDependType=6\n-ParamGroup=To ColorCurve\n" +
            source->Serialize().AfterFirst('-').AfterFirst('\n'));
}

TEST(ColorCurveTest, TextIsReadBackByTheCurveItBelongsTo) {
    const auto first = Switched(5, "SEQ0TYPE0Col");
    const auto second = Switched(8, "SEQ0TYPE1Col");
    second->mScalingMin.mValue = -3.0F;
    second->mConstantColor.mValue[3] = 0.5F;
    const wxString text = first->Serialize() + second->Serialize();
    ColorCurve_cls read("SEQ0TYPE1Col", "", "0 0 0 0");
    EXPECT_EQ(Read(read, text), 6) << "five settings and the group of keys";
    EXPECT_EQ(read.Serialize(), second->Serialize());
    // Damaged text leaves a curve that can be evaluated.
    for (const char* damaged : {"-ParamGroup=SEQ0TYPE1Col ColorCurve\n",
                                "-ParamGroup=SEQ0TYPE1Col ColorCurve\nStart\nParameter_R\n",
                                "SEQ0TYPE1ColScalingMax=nan\n", "SEQ0TYPE1ColConstantColor=x\n"}) {
        Read(read, damaged);
        read.PreCalcScaleFactor();
        OfValue(read, 0.5F);
    }
}

}  // namespace
