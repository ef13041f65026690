#include "interp/clsShuffledMatcher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include "support/ScanForID.h"

namespace {

using Random = std::mt19937;
using IDs = std::vector<int32_t>;

struct PairOfOrders {
    const char* name;
    int countA;
    int countB;
    std::function<void(IDs& a, IDs& b, Random& random)> arrange;
};

void Shuffle(IDs& ids, Random& random) {
    std::shuffle(ids.begin(), ids.end(), random);
}

const std::vector<PairOfOrders> kPairs = {
    {"all shuffled", 60000, 60000,
     [](IDs& a, IDs& b, Random& random) {
         Shuffle(a, random);
         Shuffle(b, random);
     }},
    {"fewer in B, with gaps, from below zero", 60000, 45000,
     [](IDs& a, IDs& b, Random& random) {
         for (int32_t& id : a) id = 3 * id - 70000;
         for (int32_t& id : b) id = 3 * id - 69000;
         Shuffle(a, random);
         Shuffle(b, random);
     }},
    {"more in B", 30000, 60000, [](IDs&, IDs& b, Random& random) { Shuffle(b, random); }},
    {"IDs of A outside B's range, or repeating", 40000, 40000,
     [](IDs& a, IDs& b, Random& random) {
         for (int32_t& id : a) id = static_cast<int32_t>(random() % 80000) - 20000;
         a[7] = INT32_MIN;
         a[8] = INT32_MAX;
         Shuffle(b, random);
     }},
    {"ends of the widest window and of the first tenth", 50000, 50000,
     [](IDs& a, IDs& b, Random&) {
         std::swap(b[30000 - 10000], b[30000]);
         std::swap(b[31001 - 10001], b[31001]);
         std::swap(b[32000 + 9999], b[32000]);
         std::swap(b[33000 + 10000], b[33000]);
         std::swap(b[4999], b[45000]);
         std::swap(b[5000], b[46001]);
         a[20] = -1;
     }},
    {"same order", 25000, 25000, [](IDs&, IDs&, Random&) {}},
    {"no tenth", 9, 9, [](IDs& a, IDs&, Random& random) { Shuffle(a, random); }},
};

class ShuffledMatcherTest : public testing::TestWithParam<PairOfOrders> {};

void PrintTo(const PairOfOrders& pair, std::ostream* stream) {
    *stream << pair.name;
}

TEST_P(ShuffledMatcherTest, FindsWhatTheScanFinds) {
    Random random(3);
    IDs a(static_cast<size_t>(GetParam().countA));
    IDs b(static_cast<size_t>(GetParam().countB));
    std::iota(a.begin(), a.end(), 1);
    std::iota(b.begin(), b.end(), 1);
    GetParam().arrange(a, b, random);
    const auto pair = ShuffledPair_cls::MakeAlways(a, b, IDRange_cls::Find(b));
    ASSERT_TRUE(pair);
    ShuffledMatcher_cls matcher(*pair);

    IDs sorted = b;
    std::sort(sorted.begin(), sorted.end());
    const int count = static_cast<int>(std::min(a.size(), b.size()));
    int outOfReach = 0;
    // In ranges of several lengths: what one leaves behind must not show in the next.
    int begin = 0;
    for (const int part : {2, 7, 3, 1}) {
        const int end = begin + (count - begin) / part;
        const auto matches = matcher.FindMatches(begin, end);
        size_t m = 0;
        for (int i = begin; i < end; ++i) {
            const int id = a[static_cast<size_t>(i)];
            const bool found = m < matches.size() && matches[m].i == i;
            const int j = found ? matches[m++].j : -1;
            ASSERT_EQ(j, SearchByScanning(b, i, id)) << "particle " << i;
            outOfReach += j < 0 && std::binary_search(sorted.begin(), sorted.end(), id) ? 1 : 0;
        }
        EXPECT_EQ(m, matches.size());
        begin = end;
    }
    EXPECT_EQ(matcher.GetOutOfReach(), outOfReach);
    EXPECT_FALSE(pair->HasRepeats());
}

INSTANTIATE_TEST_SUITE_P(ShuffledMatcherTest, ShuffledMatcherTest, testing::ValuesIn(kPairs));

TEST(ShuffledPairTest, RepeatsAreNoticedWhereASearchMayMeetThem) {
    IDs a(60000);
    std::iota(a.begin(), a.end(), 1);
    const auto hasRepeats = [&a](size_t first, size_t second) {
        IDs b = a;
        b[first] = b[second];
        const auto pair = ShuffledPair_cls::MakeAlways(a, b, IDRange_cls::Find(b));
        if (!pair) return true;
        ShuffledMatcher_cls(*pair).FindMatches(30000, 31000);
        return pair->HasRepeats();
    };
    EXPECT_TRUE(hasRepeats(3, 5999)) << "both in the first tenth";
    EXPECT_TRUE(hasRepeats(3, 40998)) << "tenth and window";
    EXPECT_TRUE(hasRepeats(20000, 40998)) << "ends of the window";
    EXPECT_FALSE(hasRepeats(3, 41500)) << "out of reach";
}

TEST(ShuffledPairTest, OnlyLargePairsOfLostOrderAreWorthIt) {
    constexpr int kCount = 5000000;
    Random random(1);
    IDs a(kCount);
    std::iota(a.begin(), a.end(), 1);
    IDs b = a;
    EXPECT_FALSE(ShuffledPair_cls::Make(a, b)) << "same order";
    Shuffle(b, random);
    EXPECT_TRUE(ShuffledPair_cls::Make(a, b));
    EXPECT_FALSE(ShuffledPair_cls::Make(a, std::span(b).first(kCount - 1))) << "small";
    b[kCount / 2] = INT32_MAX;
    EXPECT_FALSE(ShuffledPair_cls::Make(a, b)) << "scattered";
}

}  // namespace
