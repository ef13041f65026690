#include "render/clsShadowVolume.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include "render/clsShadowSettings.h"
#include "support/SpecialNumbers.h"

namespace {

using Light = ShadowVolume_cls::Light;
using Masks = std::vector<int>;

struct Sphere {
    float x, y, z, radius;
};

class ShadowVolumeTest : public ::testing::Test {
  protected:
    /// Sphere by sphere, in an order of drawing that is not that of the arrays.
    void Set(const std::vector<Sphere>& spheres) {
        const size_t count = spheres.size();
        mPositions.clear();
        mEntries.resize(count);
        mRadii.resize(count);
        for (const Sphere& sphere : spheres)
            mPositions.insert(mPositions.end(), {sphere.x, sphere.y, sphere.z});
        for (size_t k = 0; k < count; ++k) {
            const size_t index = count - 1 - k;
            mEntries[k] = {.mIndex = static_cast<int32_t>(index), .mKey = 0.0F, .mAlpha = 1.0F};
            mRadii[k] = spheres[index].radius;
        }
    }
    /// The masks by particle.
    Masks Find(const std::vector<Light>& lights) {
        const auto found = mShadows.FindShadows(mEntries, mPositions.data(), mRadii, lights);
        return {found.rbegin(), found.rend()};
    }
    /// Every pair, by the words of the volume: beyond the centre, up to the length, inside the cylinder or
    /// cone. Pairs too close to an edge for floats to tell give -1.
    int IsShadowed(size_t particle, const Light& light) const {
        using std::sqrt;
        const auto at = [this](size_t i, size_t axis) { return double{mPositions[3 * i + axis]}; };
        int shadowed = 0;
        for (size_t other = 0; other < mEntries.size(); ++other) {
            const double radius = mRadii[mEntries.size() - 1 - other];
            if (other == particle || !(radius > 0.0)) continue;
            std::array<double, 3> axis{};
            std::array<double, 3> ray{};
            for (size_t d = 0; d < 3; ++d) {
                axis[d] = light[3] == 0.0F ? -double{light[d]} : at(other, d) - light[d];
                ray[d] = light[3] == 0.0F ? at(particle, d) - at(other, d) : at(particle, d) - light[d];
            }
            const double axisLength = std::hypot(axis[0], axis[1], axis[2]);
            const double rayLength = std::hypot(ray[0], ray[1], ray[2]);
            const double along = (ray[0] * axis[0] + ray[1] * axis[1] + ray[2] * axis[2]) / axisLength;
            const double off = sqrt(std::max(rayLength * rayLength - along * along, 0.0));
            double depth = along;
            double edge = radius - off;
            if (light[3] != 0.0F) {
                if (axisLength <= radius) continue;
                depth = rayLength - axisLength;
                edge = std::asin(radius / axisLength) - std::atan2(off, along);
            }
            const double end = mSettings.mLength.mValue;
            if (std::min({std::abs(depth), std::abs(end - depth), std::abs(edge)}) < 1e-6) return -1;
            if (depth > 0.0 && depth < end && edge > 0.0) shadowed = 1;
        }
        return shadowed;
    }

    ShadowSettings_cls mSettings;
    ShadowVolume_cls mShadows{mSettings};
    std::vector<float> mPositions;
    std::vector<ArrayAndIndex_cls> mEntries;
    std::vector<float> mRadii;
};

TEST_F(ShadowVolumeTest, WhatStandsBehindASphereIsShadowed) {
    const Light above = {0, 0, 2, 0};
    const Light lamp = {0, 0, 10, 1};
    const struct {
        const char* name;
        std::vector<Sphere> spheres;
        Light light;
        float length;
        Masks masks;
    } cases[] = {
        {"a column", {{0, 0, 0, 1}, {0.5F, 0, -5, 1}, {0, 0, 5, 0}}, above, 1000, {0, 1, 0}},
        {"beside it", {{0, 0, 0, 1}, {1.1F, 0, -5, 0}}, above, 1000, {0, 0}},
        {"the cone widens", {{0, 0, 0, 1}, {1.4F, 0, -5, 0}, {1.6F, 0, -5, 0}}, lamp, 1000, {0, 1, 0}},
        {"the length", {{0, 0, 0, 1}, {0, 0, -4, 0}, {0, 0, -6, 0}}, above, 5, {0, 1, 0}},
        {"no length", {{0, 0, 0, 1}, {0, 0, -4, 0}}, above, 0, {0, 0}},
        {"infinite length", {{0, 0, 0, 1}, {0, 0, -4, 0}}, above, kInfinity<float>, {0, 1}},
        {"side by side, and one place twice",
         {{0, 0, 0, 3}, {1, 0, 0, 3}, {1, 0, 0, 3}},
         above,
         9,
         {0, 0, 0}},
        {"the lamp inside", {{0, 0, 9, 2}, {0, 0, 0, 1}, {0, 0, 10, 1}}, lamp, 1000, {0, 0, 0}},
        {"no direction", {{0, 0, 0, 1}, {0, 0, -4, 0}}, {0, 0, 0, 0}, 1000, {0, 0}},
        {"no numbers",
         {{kNaN<float>, 0, 0, 1}, {0, 0, 1, kNaN<float>}, {0, 0, -4, -1}, {0, 0, 1, kInfinity<float>}},
         above,
         9,
         {0, 0, 0, 0}},
        {"huge and tiny",
         {{0, 0, 1e30F, 1e30F}, {1e25F, 3, 0, 1e-30F}, {2, 0, -4, 1e-40F}},
         above,
         kInfinity<float>,
         {0, 1, 1}},
    };
    for (const auto& c : cases) {
        mSettings.mLength.mValue = c.length;
        Set(c.spheres);
        EXPECT_EQ(Find({c.light}), c.masks) << c.name;
    }
    Set({});
    EXPECT_EQ(Find({above}), Masks());
}

TEST_F(ShadowVolumeTest, TheGridsFindWhatEveryPairTells) {
    std::mt19937 random(1);
    std::normal_distribution<float> normal;
    const std::vector<Light> lights = {{0.3F, -1, 0.5F, 0}, {0, 0, 1, 0},    {3, 2, 1, 1}, {0.1F, 0, 0, 1},
                                       {-1, 0, 0, 0},       {40, 50, 60, 1}, {0, 1, 0, 0}, {1, 1, 1, 0}};
    for (const float length : {1000.0F, 0.7F}) {
        for (const float spread : {0.0F, 2.0F}) {
            mSettings.mLength.mValue = length;
            std::vector<Sphere> spheres(350);
            for (Sphere& sphere : spheres) {
                // A crowd and its outskirts, some far out; a quarter throws no shadow.
                const float scale = std::exp(normal(random));
                sphere = {scale * normal(random), scale * normal(random), scale * normal(random),
                          random() % 4 == 0 ? 0.0F : 0.05F * std::exp(spread * normal(random))};
            }
            Set(spheres);
            const Masks masks = Find(lights);
            int inShadow = 0;
            for (size_t i = 0; i < spheres.size(); ++i) {
                for (size_t n = 0; n < lights.size(); ++n) {
                    const int expected = IsShadowed(i, lights[n]);
                    if (expected < 0) continue;
                    inShadow += expected;
                    ASSERT_EQ((masks[i] >> n) & 1, expected) << "particle " << i << ", light " << n;
                }
            }
            EXPECT_GT(inShadow, 20);
        }
    }
}

TEST_F(ShadowVolumeTest, CrowdsInOnePlaceEndSoon) {
    // A hundred thousand spheres one behind the other, small ones on the same spot, and one far out.
    std::vector<Sphere> spheres(200001);
    for (size_t i = 0; i < 200000; ++i) {
        spheres[i] = {0, 0, i % 2 == 0 ? static_cast<float>(i) : 0.0F, i % 2 == 0 ? 1.0F : 1e-20F};
    }
    spheres.back() = {1e20F, 0, 0, 1};
    Set(spheres);
    mSettings.mLength.mValue = 3;
    const Masks masks = Find({{0, 0, 1, 0}});
    EXPECT_EQ(std::ranges::count(masks, 1), 100000 + 99999);
}

TEST_F(ShadowVolumeTest, Darkness) {
    for (const auto& [darkness, left] :
         {std::pair(1.0F, 0.0F), {0.25F, 0.75F}, {7.0F, 0.0F}, {-1.0F, 1.0F}, {kNaN<float>, 1.0F}}) {
        mSettings.mDarkness.mValue = darkness;
        EXPECT_EQ(mShadows.GetLightInShadow(), left);
    }
}

}  // namespace
