#include "support/SpecialNumbers.h"
#include "timeline/clsKeyCurve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "support/Keys.h"

namespace {

double Random(std::mt19937& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

TEST(KeyCurveTest, EvaluatesEachKindOfSegment) {
    struct Case {
        const char* name;
        std::vector<KeyFrame_cls> keys;
        int period;
        double t;
        double resolution;
        double expected;
    };
    using K = KeyFrame_cls;
    const std::vector<K> ramp = {Key(0, 0), Key(10, 10)};
    const std::vector<K> step = {Key(0, 1, K::kStep), Key(10, 2)};
    const Case cases[] = {
        {"no keys", {}, 0, 0.5, 0, 0},
        {"one key", {Key(3, 7)}, 0, 9, 0, 7},
        {"linear", ramp, 0, 5, 1, 5},
        {"the last half step is the last key", ramp, 0, 9.6, 1, 10},
        {"before the first key", ramp, 0, -4, 1, 0},
        {"negative fraction in the half step", {Key(0, 0), Key(10, 10), Key(20, 30)}, 0, 9.75, 1, 9.5},
        {"unknown type is linear", {Key(0, 0, 9), Key(10, 10)}, 0, 5, 1, 5},
        {"step holds", step, 0, 9.4, 1, 1},
        {"step jumps half a display step early", step, 0, 9.5, 1, 2},
        {"angle goes on over the wrap", {Key(0, 350), Key(1, 10)}, 360, 0.5, 0, 360},
        {"hermite over the wrap", {Key(0, 350, K::kHermite), Key(1, 10)}, 360, 0.5, 0, 360},
        {"hermite, both tangents", {Key(0, 0, K::kHermite, 4), Key(2, 0, 0, -4)}, 0, 1, 0, 2},
        {"semi-automatic takes the factor", {Key(0, 0, 2, 8, 0.5), Key(2, 0, 2, -8, 0.5)}, 0, 1, 0, 2},
        {"automatic ignores it", {Key(0, 0, 1, 4, 9), Key(2, 0, 1, -4, 9)}, 0, 1, 0, 2},
        {"time that is none", ramp, 0, kNaN<double>, 1, 10},
        {"keys at one time", {Key(0, 0), Key(5, 5), Key(5, 20), Key(10, 30)}, 0, 5, 0, 20},
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(KeyCurve_cls(c.keys, c.period).Evaluate(c.t, c.resolution), c.expected) << c.name;
}

/// The rule as it stands: looked at key by key.
size_t ScanForSegment(const std::vector<KeyFrame_cls>& keys, double t, double resolution) {
    for (size_t i = 0; i + 1 < keys.size(); ++i) {
        if (keys[i + 1].mTime - 0.5 * resolution > t) return i;
    }
    return keys.size() - 1;
}

TEST(KeyCurveTest, TheSearchFindsWhatAScanFinds) {
    std::mt19937 random(7);
    for (int round = 0; round < 4000; ++round) {
        const int layout = round % 4;  // anywhere, on few places (many at one time), clumped, far apart
        std::vector<KeyFrame_cls> keys(1 + random() % 70);
        for (KeyFrame_cls& key : keys) {
            double t = Random(random, -0.2, 1.2);
            if (layout == 1) t = std::round(t * 8.0) / 8.0;
            if (layout == 2) t = std::pow(t, 9.0);
            if (layout == 3) t = std::copysign(std::exp(Random(random, -700.0, 700.0)), t);
            key.mTime = t;
        }
        std::sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) { return b > a; });

        for (int probe = 0; probe < 60; ++probe) {
            const double resolutions[] = {
                0.0,   0.01, 0.125, 3.0, -0.25, kNaN<double>, kInfinity<double>, -kInfinity<double>,
                1e-18, 1e300};
            const double resolution = resolutions[random() % 10];
            const double at = keys[random() % keys.size()].mTime;
            const double times[] = {Random(random, -0.5, 1.5), at,           at - 0.5 * resolution,
                                    std::nextafter(at, -1e9),  kNaN<double>, kInfinity<double>,
                                    -kInfinity<double>};
            const double t = times[random() % 7];
            ASSERT_EQ(KeyCurve_cls(keys, 0).FindSegment(t, resolution), ScanForSegment(keys, t, resolution))
                << "round " << round << ", t = " << t << ", resolution = " << resolution;
        }
    }
}

/// The rule as it stands: in steps of one period.
double DifferenceInSteps(double p0, double p1, double period) {
    if (p1 > p0) {
        while (p1 > p0) p1 -= period;
        const double up = p1 + period - p0;
        const double down = p0 - p1;
        return down > up ? up : p1 - p0;
    }
    while (p1 < p0) p1 += period;
    const double d = p1 - p0;
    return d > p0 - p1 + period ? p1 - period - p0 : d;
}

TEST(KeyCurveTest, PeriodicDifferenceIsThatOfSingleSteps) {
    // Eighths make every sum exact, ties included.
    for (const int period : {1, 2, 7, 360}) {
        for (int a = -50; a <= 50; ++a) {
            for (int b = -50; b <= 50; ++b) {
                const double p0 = a * period / 8.0;
                const double p1 = b * period / 8.0;
                ASSERT_EQ(KeyCurve_cls({}, period).Difference(p0, p1), DifferenceInSteps(p0, p1, period))
                    << p0 << " to " << p1 << " by " << period;
            }
        }
    }
    EXPECT_LE(std::abs(KeyCurve_cls({}, 1).Difference(1e300, -3e299)), 0.5) << "no endless steps";
    EXPECT_EQ(KeyCurve_cls({}, -360).Difference(350, 10), 20);
}

TEST(KeyCurveTest, AutomaticTangentsAreTheSlopesOverTheNeighbours) {
    using K = KeyFrame_cls;
    std::vector<K> keys = {Key(0, 0, 1), Key(1, 1, 1), Key(2, 0, 2, 9, 0.5), Key(4, 0, 3, 9, 9)};
    KeyCurve_cls::AdjustAuto(keys, 0, 0, keys.size());
    const std::vector<K> expected = {Key(0, 0, 1, 1, 1), Key(1, 1, 1, 0, 0), Key(2, 0, 2, -1.0 / 3.0, 0.5),
                                     Key(4, 0, 3, 9, 9)};
    EXPECT_EQ(keys, expected);

    std::vector<K> angles = {Key(0, 350, 1), Key(1, 0, 1), Key(2, 10, 1)};
    KeyCurve_cls::AdjustAuto(angles, 360, 0, 3);
    EXPECT_EQ(angles[1], Key(1, 0, 1, 10, 10));

    std::vector<K> together = {Key(1, 0, 1), Key(1, 5, 1)};
    KeyCurve_cls::AdjustAuto(together, 0, 0, 2);
    EXPECT_EQ(together[0].mVelocity, 0.0) << "no slope between keys at one time";
}

}  // namespace
