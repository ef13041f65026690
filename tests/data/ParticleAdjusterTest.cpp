#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "data/clsParticleAdjuster.h"
#include "support/TargetArrays.h"

namespace {

TEST(ParticleAdjusterTest, TransformsAreAppliedInOrder) {
    struct Case {
        std::vector<const char*> settings;
        float x, velocity, radius, value1;
    };
    const Case cases[] = {
        {{}, 1, 2, 3, 100},
        {{"LoaderScale=2"}, 2, 4, 6, 100},
        {{"LoaderScale=0"}, 1, 2, 3, 100},
        {{"LoaderTranslate=10 0 0", "LoaderScale=2"}, 22, 4, 6, 100},
        {{"LoaderScaleValue1=10"}, 1, 2, 3, 1000},
        {{"LoaderScaleValue1=0", "LoaderLogarithm=1"}, 1, 2, 3, 2},
        {{"LoaderScaleValue1=10", "LoaderLogarithm=1"}, 1, 2, 3, 3},
        {{"LoaderScaleValue1=-1", "LoaderLogarithm=1"}, 1, 2, 3, 0},
        {{"LoaderLogarithm=2"}, 1, 2, 3, 100},
        {{"DataLoadGrammerBody=0", "LoaderScale=2", "LoaderScaleValue1=2"}, 2, 2, 3, 100},
    };
    for (const Case& c : cases) {
        DataLoader_cls loader;
        for (const char* setting : c.settings) ASSERT_TRUE(loader.ReadStrLine(setting)) << setting;
        TargetArrays_cls arrays(2);
        arrays.mPosition = {9, 9, 9, 1, 0, 0};
        arrays.mVelocity = {9, 9, 9, 2, 0, 0};
        arrays.mRadius = {9, 3};
        arrays.mValue1 = {9, 100};
        ParticleAdjuster_cls(loader).DoAdjusting(arrays.Target(), 1, 1);
        const std::string name = c.settings.empty() ? "none" : c.settings.back();
        EXPECT_EQ(arrays.mPosition, (std::vector<float>{9, 9, 9, c.x, 0, 0})) << name;
        EXPECT_EQ(arrays.mVelocity[3], c.velocity) << name;
        EXPECT_EQ(arrays.mRadius, (std::vector<float>{9, c.radius})) << name;
        EXPECT_EQ(arrays.mValue1, (std::vector<float>{9, c.value1})) << name;
    }
}

TEST(ParticleAdjusterTest, LogarithmOfWhatHasNone) {
    DataLoader_cls loader;
    loader.ReadStrLine("LoaderLogarithm=1");
    TargetArrays_cls arrays(3);
    arrays.mValue1 = {0.0F, -5.0F, std::numeric_limits<float>::quiet_NaN()};
    ParticleAdjuster_cls(loader).DoAdjusting(arrays.Target(), 0, 3);
    EXPECT_EQ(arrays.mValue1[0], 0.0F);
    EXPECT_EQ(arrays.mValue1[1], 0.0F);
    EXPECT_TRUE(std::isnan(arrays.mValue1[2]));
}

TEST(ParticleAdjusterTest, SortingMovesPositionsAndIdsOnlyAndIsStable) {
    constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
    std::mt19937 random(5);
    std::vector<std::vector<int32_t>> series = {
        {}, {7}, {3, 1, 2}, {2, 2, 1, 1}, {0, -1, kMax, -kMax - 1, 1}, {1, 2, 3}};
    for (const unsigned int range : {3U, 1000U, 0U}) {
        series.emplace_back(5000);
        for (int32_t& id : series.back()) {
            id = static_cast<int32_t>(range > 0 ? random() % range : random());
        }
    }
    for (const std::vector<int32_t>& ids : series) {
        TargetArrays_cls arrays(static_cast<int>(ids.size()));
        arrays.mID = ids;
        std::iota(arrays.mPosition.begin(), arrays.mPosition.end(), 0.0F);
        std::iota(arrays.mVelocity.begin(), arrays.mVelocity.end(), 0.0F);
        TargetArrays_cls expected = arrays;
        std::vector<size_t> order(ids.size());
        std::iota(order.begin(), order.end(), size_t{0});
        std::ranges::stable_sort(order, {}, [&ids](size_t i) { return ids[i]; });
        for (size_t i = 0; i < order.size(); ++i) {
            expected.mID[i] = ids[order[i]];
            for (size_t k = 0; k < 3; ++k) expected.mPosition[3 * i + k] = arrays.mPosition[3 * order[i] + k];
        }
        ParticleAdjuster_cls::SortById(arrays.Target(), arrays.mCount);
        EXPECT_TRUE(arrays == expected) << ids.size() << " IDs";
    }
}

}  // namespace
