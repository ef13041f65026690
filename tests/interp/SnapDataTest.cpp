#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>

#include "interp/clsSnapData.h"

namespace {

using Color = std::array<double, 4>;

/// A snapshot with rates, and four attributes whose curves run over known straight lines.
struct Scene {
    explicit Scene(int count) {
        const auto n = static_cast<size_t>(count);
        std::mt19937 random(3);
        const auto fill = [&](std::vector<float>& array, size_t size) {
            array.resize(size);
            for (float& number : array) number = static_cast<float>(random() % 1000) / 100.0F - 5.0F;
        };
        fill(position, 3 * n);
        fill(velocity, 3 * n);
        for (auto* array : {&radius, &radiusWork, &value1, &value1Work}) fill(*array, n);
        for (size_t i = 0; i < n; ++i) {
            // Blocks of one type and blocks of mixed ones, types beyond the last included.
            type.push_back(static_cast<uint8_t>(i / 10000 % 2 == 0 ? i / 20000 % 4 : random() % 7));
            id.push_back(static_cast<int32_t>(random() % 2000) - 1000);
        }
        source = {.block = reinterpret_cast<const PDataBlock_cls*>(this),
                  .count = count,
                  .time = 7.0,
                  .position = position.data(),
                  .velocity = velocity.data(),
                  .radius = radius.data(),
                  .radiusWork = radiusWork.data(),
                  .value1 = value1.data(),
                  .value1Work = value1Work.data(),
                  .type = type.data(),
                  .id = id.data()};
        for (size_t i = 0; i < attributes.size(); ++i) {
            for (ColorCurve_cls*& curve : attributes[i].curves) {
                curves.push_back(std::make_unique<ColorCurve_cls>(
                    "", "", wxString::Format("0.1 0.2 0.3 0.%u", static_cast<unsigned int>(i) + 4)));
                curve = curves.back().get();
                curve->mUseColorCurve.mValue = true;
                curve->mScalingMin.mValue = -4.0F - static_cast<float>(i);
                curve->mScalingMax.mValue = 6.0F;
            }
            attributes[i].alphaFactor = 0.9F - 0.2F * static_cast<float>(i);
            attributes[i].alphaDependBase = 0.7F;
        }
        attributes[2].alphaType = SnapAttribute_cls::kDependOnRadius;
    }
    ColorCurve_cls& Curve(size_t attribute, size_t curve = 0) { return *attributes[attribute].curves[curve]; }

    /// The default curve: green at 0, red at 1, held beyond.
    Color ExpectedColor(size_t i, double value) {
        const size_t attribute = type[i] < 4 ? type[i] : 0;
        const ColorCurve_cls& curve = Curve(attribute);
        const double factor =
            attributes[attribute].alphaType == 1 ? 0.7 * 0.7 : double{attributes[attribute].alphaFactor};
        if (!curve.IsOn() || curve.mDependType.mValue > 10) {
            return {0.1, 0.2, 0.3, (0.4 + 0.1 * static_cast<double>(attribute)) * factor};
        }
        const double min = curve.mScalingMin.mValue;
        const double t = std::clamp((value - min) / (curve.mScalingMax.mValue - min), 0.0, 1.0);
        return {t, 1.0 - t, 0.0, factor};
    }

    std::vector<float> position, velocity, radius, radiusWork, value1, value1Work;
    std::vector<uint8_t> type;
    std::vector<int32_t> id;
    std::vector<std::unique_ptr<ColorCurve_cls>> curves;
    SnapAttributes_cls attributes;
    SnapSource_cls source;
};

double Length(const std::vector<float>& vectors, size_t i) {
    return std::hypot(double{vectors[3 * i]}, double{vectors[3 * i + 1]}, double{vectors[3 * i + 2]});
}

/// What a curve of this kind feeds on, word by word; `derived` is the kind that the one derived array holds.
double ExpectedValue(const Scene& scene, unsigned int depend, unsigned int derived, size_t i, double tau) {
    if (depend == 0) return double{scene.value1[i]} + double{scene.value1Work[i]} * tau;
    if (depend == 1) return double{scene.radius[i]} + double{scene.radiusWork[i]} * tau;
    switch (derived) {
        case 2:
            return Length(scene.position, i);
        case 6:
            return Length(scene.velocity, i);
        case 10:
            return scene.id[i];
        default:
            return derived < 6 ? scene.position[3 * i + derived - 3] : scene.velocity[3 * i + derived - 7];
    }
}

bool IsNear(double found, double expected) {
    return std::abs(found - expected) <= 1e-5 * std::max(std::abs(expected), 1.0);
}

/// Compares every stride-th particle with the rules.
void ExpectState(Scene& scene, const SnapData_cls& snap, double tau, int stride) {
    unsigned int derived = 0;
    for (const SnapAttribute_cls& attribute : scene.attributes) {
        const unsigned int depend = attribute.curves[0]->mDependType.mValue;
        if (derived == 0 && depend >= 2 && depend <= 10) derived = depend;
    }
    int wrong = 0;
    for (size_t i = 0; i < scene.type.size() && wrong < 5; i += static_cast<size_t>(stride)) {
        bool right = true;
        for (size_t k = 3 * i; k < 3 * i + 3; ++k) {
            right =
                right && IsNear(snap.GetPosition()[k], double{scene.position[k]} + scene.velocity[k] * tau);
        }
        right = right && IsNear(snap.GetRadius()[i], ExpectedValue(scene, 1, 0, i, tau)) &&
                IsNear(snap.GetValue1()[i], ExpectedValue(scene, 0, 0, i, tau));
        const unsigned int depend = scene.Curve(scene.type[i] < 4 ? scene.type[i] : 0).mDependType.mValue;
        const double value = depend > 10 ? 0.0 : ExpectedValue(scene, depend, derived, i, tau);
        const Color color = scene.ExpectedColor(i, value);
        for (size_t k = 0; k < 4; ++k) right = right && IsNear(snap.GetColor()[4 * i + k], color[k]);
        if (right) continue;
        ++wrong;
        ADD_FAILURE() << "particle " << i << " of type " << int{scene.type[i]} << ", colour "
                      << snap.GetColor()[4 * i] << " for " << color[0];
    }
}

TEST(SnapDataTest, StateAndColoursFollowTheRules) {
    struct Case {
        const char* name;
        int count;
        double tau;
        int stride;
        std::array<unsigned int, 4> depends;
        bool firstCurveOn;
    };
    const std::vector<Case> cases = {
        {"values and radii", 1000, 0.25, 1, {0, 1, 0, 1}, true},
        {"backwards in time", 1000, -2.5, 1, {0, 1, 0, 1}, true},
        {"every third", 1000, 0.25, 3, {0, 1, 0, 0}, true},
        {"a step beyond the end", 10, 0.25, 100, {0, 0, 0, 0}, true},
        {"several workers", 250000, 0.25, 1, {0, 1, 0, 0}, false},
        {"several workers, every seventh", 250000, 0.25, 7, {0, 4, 4, 0}, true},
        {"the snapshot itself", 150000, 0.0, 1, {0, 1, 0, 0}, true},
        {"the snapshot itself is not thinned", 1000, 0.0, 5, {0, 1, 0, 0}, true},
        {"the snapshot itself with derived values", 1000, 0.0, 2, {7, 0, 0, 7}, true},
        {"the first derived source wins", 1000, 0.5, 1, {0, 6, 3, 10}, true},
        {"it wins even when its curve is off", 1000, 0.5, 1, {9, 6, 3, 10}, false},
        {"sources beyond the list", 1000, 0.5, 1, {11, 0, 4000000000U, 12}, true},
        {"no particles", 0, 0.5, 1, {2, 0, 0, 0}, true},
    };
    SnapData_cls reused;
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        Scene scene(one.count);
        for (size_t i = 0; i < 4; ++i) scene.Curve(i).mDependType.mValue = one.depends[i];
        scene.Curve(0).mUseColorCurve.mValue = one.firstCurveOn;
        const int visited =
            one.tau == 0.0 && !SnapData_cls::IsInterpolateRequired(scene.attributes) ? 1 : one.stride;
        ExpectState(scene, SnapData_cls(scene.source, scene.attributes, one.tau, one.stride), one.tau,
                    visited);
        reused.Build(scene.source, scene.attributes, one.tau, one.stride);
        ExpectState(scene, reused, one.tau, visited);
        EXPECT_EQ(reused.GetType(), scene.type.data());
    }
    for (unsigned int depend = 2; depend <= 10; ++depend) {
        SCOPED_TRACE(depend);
        Scene scene(500);
        for (size_t i = 0; i < 4; ++i) scene.Curve(i).mDependType.mValue = depend;
        reused.Build(scene.source, scene.attributes, 0.5, 1);
        ExpectState(scene, reused, 0.5, 1);
    }
}

TEST(SnapDataTest, OnlyWhatIsVisitedIsWritten) {
    Scene scene(1000);
    SnapData_cls snap(scene.source, scene.attributes, 1.0, 1);
    const std::vector<float> before(snap.GetPosition(), snap.GetPosition() + 3000);
    snap.Build(scene.source, scene.attributes, 2.0, 3);
    for (size_t k = 0; k < 3000; ++k) {
        ASSERT_TRUE(k / 3 % 3 == 0 || snap.GetPosition()[k] == before[k]);
    }
    // The snapshot as it stands is a copy, in which rates that are no numbers do no harm.
    scene.velocity.assign(3000, INFINITY);
    snap.Build(scene.source, scene.attributes, 0.0, 1);
    EXPECT_TRUE(std::equal(scene.position.begin(), scene.position.end(), snap.GetPosition()));
}

TEST(SnapDataTest, AStateIsTheSameForItsBlockTimeAndStride) {
    Scene scene(10);
    SnapData_cls snap(scene.source, scene.attributes, 0.5, 2);
    EXPECT_EQ(snap.GetTime(), 7.5);
    EXPECT_TRUE(snap.IsItSameSnap(scene.source.block, 7.5, 2));
    EXPECT_FALSE(snap.IsItSameSnap(nullptr, 7.5, 2));
    EXPECT_FALSE(snap.IsItSameSnap(scene.source.block, 7.25, 2));
    EXPECT_FALSE(snap.IsItSameSnap(scene.source.block, 7.5, 1));
    snap.ReleaseData();
    EXPECT_FALSE(snap.IsItSameSnap(scene.source.block, 7.5, 2));
    EXPECT_EQ(snap.GetCount(), 0);

    SnapSource_cls unread = scene.source;
    unread.count = -1;
    snap.Build(unread, scene.attributes, 0.5, 0);
    EXPECT_EQ(snap.GetCount(), 0);
    EXPECT_FALSE(snap.IsAllocated());
}

TEST(SnapDataTest, DerivedValuesAreNeededByTheCurvesInUse) {
    struct Case {
        unsigned int drawType;
        size_t curve;
        unsigned int depend;
        bool required;
    };
    for (const Case& one :
         {Case{0, 0, 2, true}, Case{0, 0, 1, false}, Case{0, 0, 11, true}, Case{0, 1, 2, false},
          Case{1, 0, 10, true}, Case{3, 0, 6, true}, Case{2, 0, 2, false}, Case{2, 1, 2, true},
          Case{2, 2, 3, true}, Case{2, 3, 4, true}, Case{4, 0, 2, false}, Case{5, 0, 2, false}}) {
        Scene scene(1);
        scene.attributes[3].drawType = one.drawType;
        scene.Curve(3, one.curve).mDependType.mValue = one.depend;
        EXPECT_EQ(SnapData_cls::IsInterpolateRequired(scene.attributes), one.required)
            << "draw type " << one.drawType << ", curve " << one.curve << " on " << one.depend;
    }
}

TEST(SnapDataTest, TheSecondCurveHasItsOwnSource) {
    Scene scene(100);
    scene.Curve(1, 1).mDependType.mValue = ColorCurve_cls::kVelocityY;
    SnapData_cls snap(scene.source, scene.attributes, 0.5, 1);
    const float* value = nullptr;
    snap.SetPValue1(&value, scene.attributes[1], 0);
    EXPECT_EQ(value, snap.GetValue1());
    EXPECT_FALSE(snap.IsValue1DashFilled());
    snap.SetPValue1(&value, scene.attributes[1], 1);
    ASSERT_EQ(value, snap.GetValue1Dash());
    EXPECT_EQ(value[33], scene.velocity[100]);
    scene.Curve(1, 1).mDependType.mValue = 11;
    snap.SetPValue1(&value, scene.attributes[1], 1);
    EXPECT_EQ(value, nullptr);
}

}  // namespace
