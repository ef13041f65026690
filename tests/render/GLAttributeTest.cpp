#include <gtest/gtest.h>

#include <cmath>

#include "render/clsDrawOption.h"
#include "render/clsGLAttribute.h"
#include "render/clsThinning.h"
#include "seam/clsLineStream.h"
#include "seam/clsTextCoding.h"
#include "support/Printing.h"

namespace {

TEST(GLAttributeTest, SettingsAreWrittenUnderTheirKeysAndReadBack) {
    GLAttribute_cls attribute(2, 3);
    const wxString text = attribute.Serialize();
    EXPECT_TRUE(text.StartsWith(
        "SEQ2TYPE3DrawType=0\nSEQ2TYPE3DrawQuality=0\nSEQ2TYPE3BlendType=0\nSEQ2TYPE3RadiusType=0\n"
        "SEQ2TYPE3RadiusFactor=1.000000\nSEQ2TYPE3RadiusFactorForConst=0.001000\nSEQ2TYPE3PointSize=10\n"
        "SEQ2TYPE3AlphaType=0\nSEQ2TYPE3ShaderType=0\nSEQ2TYPE3AlphaFactro=1.000000\n"
        "SEQ2TYPE3AlphaDependBase=1.000000\nSEQ2TYPE3AlphaMax=1.000000\n"
        "SEQ2TYPE3TexFileBillboard=Texture/ParticleA.png\nSEQ2TYPE3ColUseColorCurve=0\n"))
        << text.utf8_str().data();
    const size_t ambient = text.find("SEQ2TYPE3AmbientConstantColor=0.200000 0.160000 0.040000 1.000000\n");
    const size_t diffuse = text.find("SEQ2TYPE3DiffuseConstantColor=1.000000 0.800000 0.200000 1.000000\n");
    EXPECT_LT(text.find("-ParamGroup=SEQ2TYPE3Col ColorCurve\n"), ambient);
    EXPECT_LT(ambient, diffuse);
    EXPECT_LT(diffuse, text.find("-ParamGroup=SEQ2TYPE3Specular ColorCurve\n"));
    EXPECT_EQ(attribute.GetCurve(SnapAttribute_cls::kColor).GetDisplayName(), "Attrib 3 : Color");
    EXPECT_EQ(attribute.GetCurve(SnapAttribute_cls::kSpecular).GetDisplayName(), "Attrib 3 : Specular");

    attribute.mPointSize.mValue = 4;
    attribute.mAlphaFactor.mValue = 0.25F;
    attribute.GetCurve(SnapAttribute_cls::kDiffuse).mDependType.mValue = 7;
    attribute.GetCurve(SnapAttribute_cls::kColor).GetParamGroup().GetParameter(2).SetKey(0.5, 0, 0.75);
    LineStream_cls stream(ToBytes(GLAttribute_cls(2, 2).Serialize() + attribute.Serialize()));
    GLAttribute_cls read(2, 3);
    for (wxString line; stream.ReadLine(line);) read.ReadStrLine(stream, line);
    EXPECT_EQ(read.Serialize(), attribute.Serialize());
    EXPECT_EQ(read.GetAlpha(), attribute.GetAlpha());
    EXPECT_EQ(read.GetSnapAttribute().alphaFactor, 0.25F);
    read.SetToDefault();
    EXPECT_EQ(read.Serialize(), text);
}

TEST(GLAttributeTest, RadiusAndAlphaOfADrawnParticle) {
    GLAttribute_cls attribute(0, 0);
    attribute.mRadiusFactor.mValue = 2.0F;
    attribute.mAlphaMax.mValue = 0.8F;
    EXPECT_FLOAT_EQ(attribute.GetDrawnRadius(3.0F, 1.5F), 9.0F);
    attribute.mRadiusType.mValue = GLAttribute_cls::kConstantRadius;
    EXPECT_FLOAT_EQ(attribute.GetRadiusFactor(), 0.001F);
    EXPECT_FLOAT_EQ(attribute.GetDrawnRadius(3.0F, 1.5F), 0.0015F);

    EXPECT_FLOAT_EQ(attribute.GetDrawnAlpha(0.9F, 5.0F, 2.0F), 1.8F) << "constant alpha has no bound";
    attribute.mAlphaType.mValue = SnapAttribute_cls::kDependOnRadius;
    EXPECT_FLOAT_EQ(attribute.GetDrawnAlpha(0.5F, 2.0F, 1.5F), 0.1875F);
    EXPECT_FLOAT_EQ(attribute.GetDrawnAlpha(0.5F, 0.1F, 1.0F), 0.8F);
    EXPECT_FLOAT_EQ(attribute.GetDrawnAlpha(0.5F, 0.0F, 1.0F), 0.8F);
}

TEST(ThinningTest, FactorsKeepTheDensity) {
    using Form = Thinning_cls::Form;
    struct Case {
        int step;
        double radiusClamped, radiusUnclamped, alphaClamped, alphaUnclamped;
    };
    for (const Case& one : {Case{1, 1, 1, 1, 1}, Case{0, 1, 1, 1, 1}, Case{-5, 1, 1, 1, 1},
                            Case{2, std::sqrt(1.212), std::sqrt(1.212), 1.788, 1.788},
                            Case{100, std::sqrt(80.2), std::sqrt(80.2), 20.8, 20.8},
                            Case{200, std::sqrt(160.2), std::sqrt(279.6), 40.8, -78.6}}) {
        EXPECT_FLOAT_EQ(Thinning_cls::GetRadiusFactor(one.step, Form::Clamped),
                        static_cast<float>(one.radiusClamped));
        EXPECT_FLOAT_EQ(Thinning_cls::GetRadiusFactor(one.step, Form::Unclamped),
                        static_cast<float>(one.radiusUnclamped));
        EXPECT_FLOAT_EQ(Thinning_cls::GetAlphaFactor(one.step, Form::Clamped),
                        static_cast<float>(one.alphaClamped));
        EXPECT_FLOAT_EQ(Thinning_cls::GetAlphaFactor(one.step, Form::Unclamped),
                        static_cast<float>(one.alphaUnclamped));
    }
}

TEST(DrawOptionTest, TheStepIsAtLeastOne) {
    DrawOption_cls options;
    EXPECT_EQ(options.Serialize(), "DownSizing=1\nSortOrder=0\nClassify=1\nShadow=0\n");
    for (const auto& [line, step] : {std::pair{"DownSizing=7", 7}, std::pair{"DownSizing=0", 1},
                                     std::pair{"DownSizing=-3", 1}, std::pair{"DownSizing=x", 1}}) {
        EXPECT_TRUE(options.ReadStrLine(line));
        EXPECT_EQ(options.GetStep(), step) << line;
    }
}

}  // namespace
