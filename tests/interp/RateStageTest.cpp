#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <random>

#include "data/clsDataLoader.h"
#include "interp/clsThreadInterpolator.h"
#include "interp/clsThreadSnapInterpolate.h"
#include "seam/clsClock.h"
#include "support/RecordingSink.h"
#include "support/ScanForID.h"

namespace {

using Random = std::mt19937;
using IDs = std::vector<int32_t>;

/// Arrays of one snapshot. Positions lie on a grid, so that floats subtract them exactly and half a box
/// comes up.
struct Snapshot {
    Snapshot(int count, Random& random) {
        const auto n = static_cast<size_t>(count);
        const auto fill = [&](std::vector<float>& array, size_t size) {
            array.resize(size);
            for (float& number : array) number = static_cast<float>(random() % 640) / 64.0F;
        };
        fill(position, 3 * n);
        fill(velocity, 3 * n);
        for (auto* array : {&radius, &value1, &radiusWork, &value1Work}) fill(*array, n);
        id.resize(n);
        std::iota(id.begin(), id.end(), 1);
    }
    std::vector<float> position, velocity, radius, value1, radiusWork, value1Work;
    IDs id;
};

ThreadInterpolator_cls::Task MakeTask(Snapshot& a, const Snapshot& b) {
    return {.arrays = {.mCountA = static_cast<int>(a.id.size()),
                       .mPositionA = a.position.data(),
                       .mRadiusA = a.radius.data(),
                       .mValue1A = a.value1.data(),
                       .mIDA = a.id.data(),
                       .mCountB = static_cast<int>(b.id.size()),
                       .mPositionB = b.position.data(),
                       .mRadiusB = b.radius.data(),
                       .mValue1B = b.value1.data(),
                       .mIDB = b.id.data(),
                       .mVelocity = a.velocity.data(),
                       .mRadiusWork = a.radiusWork.data(),
                       .mValue1Work = a.value1Work.data()},
            .dt = 0.5F,
            .periodic = {.length = {10.0F, 8.0F, 6.0F}}};
}

/// Two snapshots of the same IDs in the same order, and the task of matching them by ID.
struct Search {
    Search(unsigned int seed, int countA, int countB)
        : random(seed), a(countA, random), b(countB, random), task(MakeTask(a, b)) {
        task.variableNumber = DataLoader_cls::kVariable;
    }
    Random random;
    Snapshot a;
    Snapshot b;
    ThreadInterpolator_cls::Task task;
};

// The rules word by word

int SearchFrom(const IDs& b, size_t& c, int id) {
    if (c >= b.size()) return -1;
    if (b[c] == id) return static_cast<int>(c++);
    if (id < b[c]) return -1;
    for (size_t k = c + 1;; ++k) {
        if (k == b.size()) {
            c = b.size();
            return -1;
        }
        if (b[k] == id) {
            c = k + 1;
            return static_cast<int>(k);
        }
        if (b[k] > id) {
            c = k - 1;
            return -1;
        }
    }
}

double Wrap(double d, double length, unsigned int effect) {
    if (effect == 0) return d > 0.5 * length ? d - length : d < -0.5 * length ? d + length : d;
    return d > 0.5 * length || d < -0.5 * length ? 0.0 : d;
}

/// Compares what the rate stage left in `a` with the rules. `before` is `a` as it was; of the searched
/// particles only about `samples` are looked at, since scanning is slow.
void ExpectRates(const ThreadInterpolator_cls::Task& task, const Snapshot& a, const Snapshot& before,
                 const Snapshot& b, int samples = 3000) {
    const int n = static_cast<int>(std::min(a.id.size(), b.id.size()));
    const int workers = ThreadInterpolator_cls::GetWorkerNumber(static_cast<int>(a.id.size()));
    const int each = n / workers;
    const bool searched = task.variableNumber == DataLoader_cls::kVariable;
    const int step = searched ? std::max(n / samples, 1) : 1;
    size_t cursor = 0;
    int wrong = 0;
    for (int i = 0; i < static_cast<int>(a.id.size()) && wrong < 5; i += step) {
        const auto at = static_cast<size_t>(i);
        if (i % std::max(each, 1) == 0 && i / std::max(each, 1) < workers)
            cursor = 0;  // a worker's first particle
        std::array<double, 5> rates{before.velocity[3 * at], before.velocity[3 * at + 1],
                                    before.velocity[3 * at + 2]};
        if (i < n) {
            int j = i;
            if (searched) j = SearchByScanning(b.id, i, a.id[at]);
            if (task.variableNumber == DataLoader_cls::kSortByID) j = SearchFrom(b.id, cursor, a.id[at]);
            rates.fill(0.0);
            for (size_t axis = 0; axis < 3 && j >= 0; ++axis) {
                double d =
                    double{b.position[3 * static_cast<size_t>(j) + axis]} - double{a.position[3 * at + axis]};
                if (task.periodic.type == 2 || (task.periodic.type == 1 && axis < 2)) {
                    d = Wrap(d, task.periodic.length[axis], task.periodic.effect);
                }
                rates[axis] = d / double{task.dt};
            }
            if (j >= 0) {
                rates[3] =
                    (double{b.radius[static_cast<size_t>(j)]} - double{a.radius[at]}) / double{task.dt};
                rates[4] =
                    (double{b.value1[static_cast<size_t>(j)]} - double{a.value1[at]}) / double{task.dt};
            }
        }
        const std::array<float, 5> found = {a.velocity[3 * at], a.velocity[3 * at + 1],
                                            a.velocity[3 * at + 2], a.radiusWork[at], a.value1Work[at]};
        for (size_t k = 0; k < rates.size(); ++k) {
            if (std::abs(double{found[k]} - rates[k]) <= 1e-5 * std::abs(rates[k])) continue;
            ADD_FAILURE() << "particle " << i << ", rate " << k << ": " << found[k] << " for " << rates[k];
            ++wrong;
        }
    }
}

void RunAndExpect(ThreadInterpolator_cls::Task task, Snapshot& a, const Snapshot& b, int samples = 3000) {
    const Snapshot before = a;
    ThreadInterpolator_cls::ComputeRates(task);
    ExpectRates(task, a, before, b, samples);
}

// Matching

struct Arrangement {
    const char* name;
    int countA;
    int countB;
    std::function<void(IDs& a, IDs& b, Random& random)> arrange;
    int samples = 3000;
};

void PrintTo(const Arrangement& arrangement, std::ostream* stream) {
    *stream << arrangement.name;
}

void Draw(IDs& ids, unsigned int range, int factor, Random& random) {
    for (int32_t& id : ids) id = static_cast<int32_t>(random() % range) * factor - 1000;
}

/// Puts one ID at distances that lie at the very ends of the windows, all other IDs nowhere in B.
void PlaceAtBounds(IDs& a, IDs& b, Random&) {
    for (int32_t& id : b) id = -id;
    int i = 13000;
    for (const int w : {10, 100, 1000, 10000}) {
        for (const int distance : {-w - 1, -w, 1 - w, w - 1, w, w + 1}) {
            b[static_cast<size_t>(i + distance)] = a[static_cast<size_t>(i)];
            i += 23;
        }
    }
    // At both sides of the end of the first tenth, from far away.
    b[2499] = a[24000];
    b[2500] = a[24001];
    b[0] = a[24002];
}

/// A nearer one behind is not preferred to the first in the window; an outer window does not skip inner ones.
void Repeat(const IDs& a, IDs& b) {
    for (const int distance : {-9, 3, 90, -700}) b[static_cast<size_t>(20000 + distance)] = a[20000];
    for (const int distance : {95, -60}) b[static_cast<size_t>(21000 + distance)] = a[21000];
}

class MatchingTest : public testing::TestWithParam<Arrangement> {};

TEST_P(MatchingTest, GivesWhatTheScanGives) {
    const Arrangement& arrangement = GetParam();
    Search search(7, arrangement.countA, arrangement.countB);
    auto& [random, a, b, task] = search;
    arrangement.arrange(a.id, b.id, random);
    RunAndExpect(task, a, b, arrangement.samples);
}

const std::vector<Arrangement> kArrangements = {
    {"same order", 50000, 50000, [](IDs&, IDs&, Random&) {}},
    {"a few swapped, too few for an index", 50000, 50000,
     [](IDs& a, IDs&, Random& random) {
         for (size_t i = 0; i < 42000; i += 6000) std::swap(a[i + 1], a[i + random() % 5000]);
     }},
    {"shuffled", 50000, 50000,
     [](IDs&, IDs& b, Random& random) { std::shuffle(b.begin(), b.end(), random); }},
    {"moved a little", 50000, 40000,
     [](IDs&, IDs& b, Random& random) {
         for (size_t i = 0; i + 500 < b.size(); ++i) std::swap(b[i], b[i + random() % 500]);
     }},
    {"moved by thousands", 45000, 50000,
     [](IDs&, IDs& b, Random&) { std::rotate(b.begin(), b.begin() + 9990, b.end()); }},
    {"IDs far apart", 50000, 50000,
     [](IDs& a, IDs& b, Random& random) {
         for (IDs* ids : {&a, &b}) {
             for (int32_t& id : *ids) id = (id - 25000) * 40009;
         }
         std::shuffle(b.begin(), b.end(), random);
     }},
    {"largest and smallest numbers", 1000, 1000,
     [](IDs& a, IDs& b, Random& random) {
         a[500] = b[3] = INT32_MIN;
         a[501] = b[997] = INT32_MAX;
         std::shuffle(b.begin(), b.end(), random);
     }},
    {"IDs that repeat or are missing", 50000, 50000,
     [](IDs& a, IDs& b, Random& random) {
         Draw(a, 40000, 1, random);
         Draw(b, 40000, 1, random);
     }},
    {"far apart, repeating", 50000, 48000,
     [](IDs& a, IDs& b, Random& random) {
         Draw(a, 20000, 100003, random);
         Draw(b, 20000, 100003, random);
     }},
    {"five IDs", 50000, 50000,
     [](IDs& a, IDs& b, Random& random) {
         Draw(a, 5, 1, random);
         Draw(b, 5, 1, random);
     }},
    {"ends of the windows", 25000, 25000, PlaceAtBounds, 25000},
    {"ends of the windows among repeating IDs", 25000, 25000,
     [](IDs& a, IDs& b, Random& random) {
         PlaceAtBounds(a, b, random);
         Repeat(a, b);
     },
     25000},
    {"no tenth", 9, 9, [](IDs&, IDs& b, Random& random) { std::shuffle(b.begin(), b.end(), random); }},
    {"B without particles", 10, 0, [](IDs&, IDs&, Random&) {}},
    {"A without particles", 0, 10, [](IDs&, IDs&, Random&) {}},
};

INSTANTIATE_TEST_SUITE_P(RateStageTest, MatchingTest, testing::ValuesIn(kArrangements));

TEST(RateStageTest, ParticlesOutOfReachAreCounted) {
    Search search(7, 30000, 30000);
    auto& [random, a, b, task] = search;
    std::rotate(b.id.begin(), b.id.begin() + 15000,
                b.id.end());  // the first half is now behind, out of reach
    b.id[29999] = -1;         // missing is not out of reach
    std::atomic<int> outOfReach{-1};
    task.outOfReach = &outOfReach;
    ThreadInterpolator_cls::ComputeRates(task);
    // Of the second half, now in front, only the first 3000 are found.
    EXPECT_EQ(outOfReach, 14999 + 12000);
    task.interpolationType = DataLoader_cls::kHermite;
    ThreadInterpolator_cls::ComputeRates(task);
    EXPECT_EQ(outOfReach, 0) << "nothing is looked for";
}

TEST(RateStageTest, LargeTablesAreFilledByTwoThreads) {
    Search search(9, 2100000, 2100000);
    auto& [random, a, b, task] = search;
    std::shuffle(a.id.begin(), a.id.end(), random);
    RunAndExpect(task, a, b, 100);
    Draw(b.id, 1500000, 1, random);
    RunAndExpect(task, a, b, 100);
}

TEST(RateStageTest, LargeSnapshotsWhoseOrderIsLost) {
    Search search(5, 5000000, 5000001);
    auto& [random, a, b, task] = search;
    std::shuffle(a.id.begin(), a.id.end(), random);
    std::shuffle(b.id.begin(), b.id.end(), random);
    RunAndExpect(task, a, b, 500);
    // One ID twice near the particle that looks for it: the first counts.
    b.id[4000007] = b.id[4000009] = a.id[4000000];
    RunAndExpect(task, a, b, 500);
    b.id[1] = b.id[2] = a.id[0];
    RunAndExpect(task, a, b, 500);
}

// Rules, periodic boundaries, workers

TEST(RateStageTest, EveryRuleHonoursEveryBoundary) {
    for (const int countA : {2000, 250000}) {
        for (const unsigned int rule : {0U, 1U, 2U}) {
            for (const unsigned int type : {0U, 1U, 2U}) {
                for (const unsigned int effect : {0U, 1U}) {
                    SCOPED_TRACE(testing::Message() << countA << " particles, rule " << rule
                                                    << ", periodic type " << type << ", effect " << effect);
                    Random random(11);
                    Snapshot a(countA, random);
                    Snapshot b(countA * 9 / 10, random);
                    // Sorted, with gaps and repetitions on both sides.
                    for (IDs* ids : {&a.id, &b.id}) {
                        Draw(*ids, static_cast<unsigned int>(countA) * 2, 1, random);
                        std::sort(ids->begin(), ids->end());
                    }
                    auto task = MakeTask(a, b);
                    task.variableNumber = rule;
                    task.periodic.type = type;
                    task.periodic.effect = effect;
                    RunAndExpect(task, a, b);
                }
            }
        }
    }
}

TEST(RateStageTest, WorkerNumbersChangeBeyondTheirBounds) {
    const std::vector<std::array<int, 3>> bounds = {
        {0, 1, 1},       {100000, 1, 1},  {100001, 2, 2},   {300001, 3, 2},   {1000000, 3, 2},
        {1000001, 4, 3}, {3000001, 5, 3}, {10000000, 5, 3}, {10000001, 6, 4}, {INT32_MAX, 6, 4}};
    for (const auto& [count, forRates, forStates] : bounds) {
        EXPECT_EQ(ThreadInterpolator_cls::GetWorkerNumber(count), forRates) << count;
        EXPECT_EQ(ThreadSnapInterpolate_cls::GetWorkerNumber(count), forStates) << count;
    }
}

TEST(RateStageTest, OtherTypesAndUnknownSettingsLetNothingGrow) {
    struct Case {
        const char* name;
        unsigned int interpolationType, variableNumber, periodicType, effect;
        bool keepsVelocity;
    };
    for (const Case& one :
         {Case{"hermite", 1, 0, 0, 0, true}, Case{"none", 2, 1, 0, 0, false},
          Case{"unknown type", 3, 0, 0, 0, false}, Case{"unknown rule", 0, 3, 0, 0, true},
          Case{"unknown effect", 0, 0, 1, 2, true}, Case{"unknown boundary", 0, 1, 3, 0, true},
          Case{"unknown boundary, sorted", 0, 2, 3, 1, true}}) {
        SCOPED_TRACE(one.name);
        Random random(13);
        Snapshot a(300, random);
        const Snapshot b(300, random);
        const std::vector<float> velocity = a.velocity;
        auto task = MakeTask(a, b);
        task.interpolationType = one.interpolationType;
        task.variableNumber = one.variableNumber;
        task.periodic.type = one.periodicType;
        task.periodic.effect = one.effect;
        ThreadInterpolator_cls::ComputeRates(task);
        EXPECT_EQ(a.velocity, one.keepsVelocity ? velocity : std::vector<float>(900));
        EXPECT_EQ(a.radiusWork, std::vector<float>(300));
        EXPECT_EQ(a.value1Work, std::vector<float>(300));
    }
}

TEST(RateStageTest, ParticlesWithoutPartnersStandStill) {
    Random random(17);
    for (const unsigned int rule :
         {DataLoader_cls::kConstant, DataLoader_cls::kVariable, DataLoader_cls::kSortByID}) {
        // Towards itself, as the last snapshot, and without the IDs that the rule goes by.
        Snapshot a(1000, random);
        auto task = MakeTask(a, a);
        task.dt = 0.0F;
        task.variableNumber = rule;
        if (rule != DataLoader_cls::kConstant) task.arrays.mIDB = nullptr;
        ThreadInterpolator_cls::ComputeRates(task);
        EXPECT_EQ(a.velocity, std::vector<float>(3000));
        EXPECT_EQ(a.value1Work, std::vector<float>(1000));
    }
}

// Protocol

TEST(RateStageTest, OneStageRunsAtATimeAndTellsItsEnd) {
    RecordingSink_cls sink;
    Random random(23);
    Snapshot a(1000, random);
    const Snapshot b(1000, random);
    auto task = MakeTask(a, b);
    std::atomic<bool> interpolated{false};
    task.interpolated = &interpolated;

    GpCThreadInterpolate = reinterpret_cast<ThreadInterpolator_cls*>(&sink);  // some other stage
    EXPECT_FALSE(ThreadInterpolator_cls::StartInterpolating(task));
    GpCThreadInterpolate = nullptr;
    EXPECT_TRUE(sink.mPosted.empty());

    for (int round = 0; round < 20; ++round) {
        interpolated = false;
        ASSERT_TRUE(ThreadInterpolator_cls::StartInterpolating(task));
        PollUntil(GbThreadInterpolateFinished, 3);
        EXPECT_TRUE(interpolated);
        GpCThreadInterpolate = nullptr;  // as a waiting caller does, while the stage may be at its last acts
    }
    ThreadInterpolator_cls::JoinLast();
    EXPECT_EQ(sink.mPosted, std::vector<int>(20, EventSink_cls::kRedraw));
    EXPECT_EQ(GpCThreadInterpolate.load(), nullptr);
}

TEST(PeriodicBoundaryTest, BoxesAreReadAndMultiplied) {
    PeriodicBoundary_cls boundary;
    EXPECT_EQ(boundary.GetRule().length, (std::array{10.0F, 10.0F, 10.0F}));
    for (const char* line : {"PeriodicType=2", "PeriodicSize=2 1 0.5", "PeriodicEffect=1",
                             "PeriodicBaseVector0=10 5 0", "PeriodicBaseVector2=1 2 3"}) {
        EXPECT_TRUE(boundary.ReadStrLine(line));
    }
    EXPECT_EQ(
        boundary.Serialize(),
        "PeriodicType=2\nPeriodicSize=2.000000 1.000000 0.500000\nPeriodicEffect=1\n"
        "PeriodicBaseVector0=10.000000 5.000000 0.000000\nPeriodicBaseVector1=0.000000 10.000000 0.000000\n"
        "PeriodicBaseVector2=1.000000 2.000000 3.000000\n");
    EXPECT_EQ(boundary.GetRule().length, (std::array{20.0F, 10.0F, 1.5F}));
}

}  // namespace
