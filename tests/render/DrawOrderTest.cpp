#include "render/clsDrawOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <tuple>
#include <vector>

#include "data/clsPreference.h"
#include "render/clsDrawOption.h"
#include "support/SpecialNumbers.h"

namespace {

using Entries = std::vector<ArrayAndIndex_cls>;

std::vector<int> IndicesOf(std::span<const ArrayAndIndex_cls> entries) {
    std::vector<int> indices;
    for (const ArrayAndIndex_cls& entry : entries) indices.push_back(entry.mIndex);
    return indices;
}

/// Every entry once and with its key, ascending; of equal keys a later quarter's first, inside a quarter in
/// the old order. Entry i stands at place i of the unsorted ones.
::testing::AssertionResult IsExact(const Entries& entries, const Entries& sorted) {
    const auto rank = [&entries](const ArrayAndIndex_cls& entry) {
        const auto index = static_cast<size_t>(entry.mIndex);
        long quarter = 3;
        while (index < static_cast<size_t>(quarter) * entries.size() / 4) --quarter;
        return std::tuple(entry.mKey, -quarter, index);
    };
    for (size_t i = 0; i < sorted.size(); ++i) {
        if (sorted[i].mKey != entries.at(static_cast<size_t>(sorted[i].mIndex)).mKey ||
            (i > 0 && rank(sorted[i - 1]) >= rank(sorted[i]))) {
            return ::testing::AssertionFailure() << "at " << i << " of " << sorted.size();
        }
    }
    return ::testing::AssertionSuccess();
}

class ZSortTest : public ::testing::Test {
  protected:
    ZSortTest() { ZSort_cls::mspCPreferenceLink = &mPreference; }
    ~ZSortTest() override { ZSort_cls::mspCPreferenceLink = nullptr; }

    /// Entries 0, 1, 2, ... with these keys.
    template <class Key>
    static Entries Make(size_t count, const Key& key) {
        Entries entries(count);
        for (size_t i = 0; i < count; ++i)
            entries[i] = {.mIndex = static_cast<int32_t>(i), .mKey = key(i), .mAlpha = 1.0F};
        return entries;
    }
    Entries SortParallel(const Entries& entries) {
        std::ranges::copy(entries, mArray.Reserve(entries.size()));
        mZSort.ZSortParallel(mArray, entries.size());
        return {mArray.Get(), mArray.Get() + entries.size()};
    }

    Preference_cls mPreference;
    EntryArray_cls mArray;
    ZSort_cls mZSort;
    std::mt19937 mRandom{1};
};

TEST_F(ZSortTest, PreciseIsTheSortedOrderWithTiesByQuarters) {
    std::normal_distribution<float> normal;
    const struct {
        const char* name;
        std::function<float(size_t)> key;
    } cases[] = {
        {"both signs", [&](size_t) { return normal(mRandom); }},
        {"many equal", [&](size_t) { return static_cast<float>(mRandom() % 3); }},
        {"all equal", [](size_t) { return 7.0F; }},
        {"descending", [](size_t i) { return -static_cast<float>(i); }},
        {"any magnitude", [&](size_t) { return std::exp(80.0F * std::sin(normal(mRandom))); }},
        {"infinities",
         [](size_t i) { return i % 5 == 0   ? kInfinity<float>
                               : i % 7 == 0 ? -kInfinity<float>
                                            : 1.0F; }},
    };
    for (const auto& c : cases) {
        for (const size_t count : {0U, 1U, 2U, 3U, 5U, 100001U}) {
            const Entries entries = Make(count, c.key);
            EXPECT_TRUE(IsExact(entries, SortParallel(entries))) << c.name << ", " << count;
        }
    }
}

TEST_F(ZSortTest, LargeArraysAreTheSameEveryTime) {
    for (const size_t count : {1000000U, 10000000U}) {
        const Entries entries = Make(count, [&](size_t) { return -static_cast<float>(mRandom() % 1000000); });
        for (size_t sorts = 0; sorts < (count == 1000000 ? 3 : 1); ++sorts) {
            EXPECT_TRUE(IsExact(entries, SortParallel(entries)));
        }
    }
}

TEST_F(ZSortTest, ApproximateIsOutOfPlaceByAStepAtMost) {
    for (const unsigned int type : {1U, 2U, 3U}) {
        mPreference.mSortType.mValue = type;
        const int step = mPreference.GetMergeStep();
        for (const unsigned int range : {50U, 1000000U}) {
            Entries entries = Make(200001, [&](size_t) { return static_cast<float>(mRandom() % range); });
            // Runs that lie apart and runs that do not, as thinned regions of space have them.
            for (size_t i = 0; i < 60000; ++i) entries[i].mKey *= 0.1F;
            Entries exact = entries;
            std::ranges::sort(exact, {}, &ArrayAndIndex_cls::mKey);
            const Entries sorted = SortParallel(entries);
            std::vector<bool> seen(entries.size());
            long farthest = 0;
            for (size_t i = 0; i < sorted.size(); ++i) {
                seen[static_cast<size_t>(sorted[i].mIndex)] = true;
                const auto own =
                    std::ranges::equal_range(exact, sorted[i].mKey, {}, &ArrayAndIndex_cls::mKey);
                const long first = own.begin() - exact.begin();
                const long last = own.end() - exact.begin() - 1;
                const auto at = static_cast<long>(i);
                farthest = std::max({farthest, first - at, at - last});
            }
            EXPECT_EQ(std::ranges::count(seen, true), 200001);
            EXPECT_LE(farthest, step);
            EXPECT_TRUE(farthest > 0 || range == 50) << "blocks are moved at all";
            EXPECT_EQ(IndicesOf(SortParallel(entries)), IndicesOf(sorted));
        }
    }
}

TEST_F(ZSortTest, KeysThatAreNoNumbersLoseNothing) {
    for (const unsigned int type : {0U, 2U, 77U}) {
        mPreference.mSortType.mValue = type;
        const Entries entries = Make(150000, [&](size_t i) {
            return i % 3 == 0 ? std::copysign(kNaN<float>, i % 2 == 0 ? 1.0F : -1.0F)
                              : static_cast<float>(mRandom() % 100);
        });
        const Entries sorted = SortParallel(entries);
        EXPECT_TRUE(std::isinf(sorted[100000].mKey) && std::isfinite(sorted[99999].mKey));
        std::vector<int> indices = IndicesOf(sorted);
        std::ranges::sort(indices);
        EXPECT_EQ(indices, IndicesOf(entries));
    }
}

class DrawOrderTest : public ::testing::Test {
  protected:
    /// Particles on the x axis at these places.
    std::span<ArrayAndIndex_cls> Order(const std::vector<float>& x, int step, unsigned int sortOrder) {
        mPosition.assign(3 * x.size(), 0.0F);
        for (size_t i = 0; i < x.size(); ++i) mPosition[3 * i] = x[i];
        return mOrder.ZSortAtFBO0(static_cast<int>(x.size()), step, mPosition.data(), sortOrder, mView);
    }

    DrawOrder_cls mOrder;
    DrawOrder_cls::View mView{.mCamera = {10.0, 0.0, 0.0}, .mDirection = {-1.0, 0.0, 0.0}};
    std::vector<float> mPosition;
};

TEST_F(DrawOrderTest, OrdersAndThinning) {
    const std::vector<float> x = {3, 14, 1, 9, 0, 2, 11, 8, 5, 4};
    const struct {
        unsigned int sortOrder;
        int step;
        bool isOrthographic;
        std::vector<int> indices;
    } cases[] = {
        {DrawOption_cls::kNoSort, 3, false, {0, 3, 6, 9}},
        {DrawOption_cls::kNoSort, 0, false, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
        {DrawOption_cls::kNoSort, 100000000, false, {0}},
        {DrawOption_cls::kSortTransparent, 1, false, {4, 2, 5, 0, 9, 8, 1, 7, 3, 6}},
        {DrawOption_cls::kSortTransparent, 3, false, {0, 3, 6}},  // 10 / 3 entries
        {DrawOption_cls::kSortTransparent, 1, true, {4, 2, 5, 0, 9, 8, 7, 3, 6, 1}},
        {DrawOption_cls::kSortTransparent, 100000000, true, {}},
        {DrawOption_cls::kSortSolid, 1, true, {3, 6, 7, 1, 8, 9, 0, 5, 2, 4}},
        {DrawOption_cls::kSortSolid, 3, false, {3, 6, 9, 0}},
        {DrawOption_cls::kSortSolid, 100000000, false, {0}},
        {3, 1, false, {}},
    };
    for (const auto& c : cases) {
        mView.mIsOrthographic = c.isOrthographic;
        const auto entries = Order(x, c.step, c.sortOrder);
        EXPECT_EQ(IndicesOf(entries), c.indices) << c.sortOrder << ", step " << c.step;
        for (const ArrayAndIndex_cls& entry : entries) EXPECT_EQ(entry.mAlpha, 1.0F);
    }
    EXPECT_TRUE(Order({}, 1, DrawOption_cls::kSortSolid).empty());
}

TEST_F(DrawOrderTest, RegionsAreCheckedInTwoOfThreeOrders) {
    mOrder.SetRegionCheck([](std::span<ArrayAndIndex_cls> entries) {
        const auto rejected =
            std::ranges::remove_if(entries, [](const ArrayAndIndex_cls& e) { return e.mIndex % 2 == 0; });
        return entries.size() - rejected.size();
    });
    const std::vector<float> x = {0, 1, 2, 3, 4};
    EXPECT_EQ(IndicesOf(Order(x, 1, DrawOption_cls::kNoSort)), (std::vector{1, 3}));
    EXPECT_EQ(IndicesOf(Order(x, 1, DrawOption_cls::kSortTransparent)), (std::vector{1, 3}));
    EXPECT_EQ(IndicesOf(Order(x, 1, DrawOption_cls::kSortSolid)), (std::vector{4, 3, 2, 1, 0}));
}

TEST_F(DrawOrderTest, TheThresholdMovesNobody) {
    // Ties tell one sort from the other: by four threads the last quarter's come first.
    for (const size_t count : {ZSort_cls::kLargestSingle, ZSort_cls::kLargestSingle + 1}) {
        const auto entries = Order(std::vector<float>(count, 1.0F), 1, DrawOption_cls::kSortTransparent);
        EXPECT_EQ(entries[0].mIndex,
                  count == ZSort_cls::kLargestSingle ? 0 : 3 * static_cast<int>(count) / 4);
    }
    std::vector<float> x(300001);
    for (size_t i = 0; i < x.size(); ++i) x[i] = static_cast<float>((i * 7919) % x.size());
    for (const int step : {1, 2}) {
        const auto entries = Order(x, step, DrawOption_cls::kSortSolid);
        EXPECT_EQ(entries.size(), (x.size() + static_cast<size_t>(step) - 1) / static_cast<size_t>(step));
        EXPECT_TRUE(std::ranges::is_sorted(entries, {}, &ArrayAndIndex_cls::mKey));
    }
}

}  // namespace
