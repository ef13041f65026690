#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "interp/clsPreparedCurve.h"
#include "render/clsColorCurveTemplateSet.h"

namespace {

/// Compares with the curve itself at keys, beside them, between, beyond, and at no number.
void ExpectAgreement(ColorCurve_cls& curve, const PreparedCurve_cls& prepared, std::mt19937& random) {
    std::vector<float> positions = {0.0F, -1.0F, 2.0F, INFINITY, -INFINITY, NAN};
    for (int channel = 0; channel < 4; ++channel) {
        for (const KeyFrame_cls& key : curve.GetParamGroup().GetParameter(channel).GetKeys()) {
            const auto t = static_cast<float>(key.mTime);
            for (const float one : {t, std::nextafter(t, -9.0F), std::nextafter(t, 9.0F)})
                positions.push_back(one);
        }
    }
    std::uniform_real_distribution<float> anywhere(-0.2F, 1.2F);
    for (int i = 0; i < 2000; ++i) positions.push_back(anywhere(random));

    std::vector<float> colors(4 * positions.size());
    const PreparedCurve_cls::Color scale = {1.0F, 1.0F, 1.0F, 0.5F};
    prepared.GetColors(positions.data(), positions.size(), scale, colors.data());
    for (size_t i = 0; i < positions.size(); ++i) {
        std::array<float, 4> direct{};
        curve.GetColor4fScaled(direct.data(), positions[i]);
        const PreparedCurve_cls::Color one = prepared.GetColor(positions[i]);
        for (size_t k = 0; k < 4; ++k) {
            ASSERT_TRUE(one[k] == direct[k] || std::abs(one[k] - direct[k]) <= PreparedCurve_cls::kTolerance)
                << one[k] << " for " << direct[k] << " in channel " << k << " at " << positions[i];
            ASSERT_EQ(colors[4 * i + k], one[k] * (k == 3 ? 0.5F : 1.0F));
        }
    }
}

TEST(PreparedCurveTest, TheTemplatesArePrepared) {
    std::mt19937 random(1);
    const ColorCurveTemplateSet_cls templates;
    for (size_t i = 0; i < templates.GetNumber(); ++i) {
        SCOPED_TRACE(templates.Get(i).GetDisplayName().utf8_str().data());
        ColorCurve_cls curve("", "", "0.1 0.2 0.3 0.4");
        curve.CopyColorFromP(templates.Get(i), true);
        for (const bool on : {false, true}) {
            curve.mUseColorCurve.mValue = on;
            const PreparedCurve_cls prepared(curve);
            EXPECT_FALSE(prepared.IsDirect());
            ExpectAgreement(curve, prepared, random);
        }
    }
}

TEST(PreparedCurveTest, AnyCurveAgreesWithItsKeys) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    int prepared = 0;
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        ColorCurve_cls curve("", "", "1 1 1 1");
        curve.mUseColorCurve.mValue = true;
        for (int channel = 0; channel < 4; ++channel) {
            std::vector<KeyFrame_cls> keys(1 + random() % 6);
            for (KeyFrame_cls& key : keys) {
                // Channels share some times, and some keys of a channel lie at one time or a hair apart.
                const double time =
                    random() % 3 == 0 ? static_cast<double>(random() % 5) / 4.0 : unit(random);
                key.Set(random() % 20 == 0 ? keys[0].mTime + 1e-7 : time,
                        static_cast<unsigned int>(random() % 6), unit(random), unit(random), unit(random),
                        false);
            }
            curve.GetParamGroup().GetParameter(channel).SetState({keys, random() % 10 != 0, 0});
        }
        const PreparedCurve_cls one(curve);
        if (!one.IsDirect()) ++prepared;
        ExpectAgreement(curve, one, random);
    }
    EXPECT_GT(prepared, 200) << "most curves of moderate shape must not need the slow way";
}

TEST(PreparedCurveTest, OddCurvesAreEvaluatedDirectly) {
    std::mt19937 random(3);
    for (const double value : {1234.5, 1e20, 1e300}) {
        ColorCurve_cls curve("", "", "1 1 1 1");
        curve.mUseColorCurve.mValue = true;
        curve.GetParamGroup().GetParameter(2).SetKey(0.7, KeyFrame_cls::kLinear, value);
        const PreparedCurve_cls prepared(curve);
        EXPECT_TRUE(prepared.IsDirect()) << value;
        ExpectAgreement(curve, prepared, random);
    }
    // Keys so far out that stretches cannot be told apart, and more keys than are worth it.
    ColorCurve_cls remote("", "", "1 1 1 1");
    ColorCurve_cls crowded("", "", "1 1 1 1");
    remote.mUseColorCurve.mValue = crowded.mUseColorCurve.mValue = true;
    for (int channel = 0; channel < 4; ++channel) {
        std::vector<KeyFrame_cls> keys(3);
        keys[0].Set(1e300, 0, 0.0, 0.0, 0.0, false);
        keys[1].Set(std::nextafter(1e300, 2e300), 0, 0.5, 0.0, 0.0, false);
        keys[2].Set(std::nextafter(keys[1].mTime, 2e300), 0, 1.0, 0.0, 0.0, false);
        remote.GetParamGroup().GetParameter(channel).SetState({keys, true, 0});
    }
    for (int i = 0; i < 1000; ++i) crowded.GetParamGroup().GetParameter(0).SetKey(i / 1000.0, 0, i % 2);
    ExpectAgreement(remote, PreparedCurve_cls(remote), random);
    EXPECT_TRUE(PreparedCurve_cls(crowded).IsDirect());
    ColorCurve_cls empty("", "", "1 1 1 1");
    empty.mUseColorCurve.mValue = true;
    for (int channel = 0; channel < 4; ++channel)
        empty.GetParamGroup().GetParameter(channel).SetState({{}, true, 0});
    ExpectAgreement(empty, PreparedCurve_cls(empty), random);
}

}  // namespace
