// Rate stage and evaluation, each beside a plain loop in the same run.

#include <sys/mman.h>
#include <wx/init.h>

#include <cstring>
#include <numeric>
#include <random>
#include <thread>

#include "data/clsDataLoader.h"
#include "interp/clsSnapData.h"
#include "interp/clsThreadInterpolator.h"
#include "render/clsColorCurveTemplateSet.h"
#include "support/Beside.h"

namespace {

constexpr int kMillion = 1000000;

/// Particle arrays lie on huge pages, as those of a snapshot do.
template <class T>
struct HugePages {
    using value_type = T;
    T* allocate(size_t size) {
        constexpr size_t kPage = size_t{2} << 20;
        const size_t bytes = (size * sizeof(T) + kPage - 1) / kPage * kPage;
        void* memory = std::aligned_alloc(kPage, bytes);
        madvise(memory, bytes, MADV_HUGEPAGE);
        return static_cast<T*>(memory);
    }
    void deallocate(T* memory, size_t) { std::free(memory); }
    bool operator==(const HugePages&) const = default;
};
template <class T>
using Array = std::vector<T, HugePages<T>>;

struct Snapshot {
    explicit Snapshot(int count, unsigned int seed)
        : position(3 * static_cast<size_t>(count)),
          velocity(position.size()),
          radius(static_cast<size_t>(count)),
          radiusWork(radius.size()),
          value1(radius.size()),
          value1Work(radius.size()),
          id(radius.size()) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> unit(0.0F, 1.0F);
        for (auto* array : {&position, &radius, &value1}) {
            for (float& number : *array) number = unit(random);
        }
        std::iota(id.begin(), id.end(), 1);
    }

    void ShuffleIDs(unsigned int seed) {
        std::mt19937 random(seed);
        std::shuffle(id.begin(), id.end(), random);
    }

    Array<float> position, velocity, radius, radiusWork, value1, value1Work;
    Array<int32_t> id;
};

RateArrays_cls Pair(Snapshot& a, const Snapshot& b) {
    return {.mCountA = static_cast<int>(a.id.size()),
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
            .mValue1Work = a.value1Work.data()};
}

/// Runs work(begin, end) on two halves of the particles at once.
template <class Work>
void OnTwoThreads(size_t count, const Work& work) {
    std::thread first([&] { work(size_t{0}, count / 2); });
    work(count / 2, count);
    first.join();
}

void RateConstant(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    Snapshot a(count, 1);
    const Snapshot b(count, 2);
    const RateArrays_cls arrays = Pair(a, b);
    const float dt = 0.5F;
    MeasureBeside(
        state,
        [&] {
            OnTwoThreads(a.id.size(), [&](size_t begin, size_t end) {
                for (size_t i = begin; i < end; ++i) {
                    for (size_t k = 3 * i; k < 3 * i + 3; ++k) {
                        a.velocity[k] = (b.position[k] - a.position[k]) / dt;
                    }
                    a.radiusWork[i] = (b.radius[i] - a.radius[i]) / dt;
                    a.value1Work[i] = (b.value1[i] - a.value1[i]) / dt;
                }
            });
        },
        [&] { ThreadInterpolator_cls::ComputeRates({.arrays = arrays, .dt = dt}); });
}
BENCHMARK(RateConstant)->Arg(10 * kMillion)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Arguments: particles, and whether the order of IDs differs at all.
void RateVariable(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    Snapshot a(count, 1);
    Snapshot b(count, 2);
    if (state.range(1) != 0) {
        a.ShuffleIDs(3);
        b.ShuffleIDs(4);
    }
    const RateArrays_cls arrays = Pair(a, b);
    Array<int32_t> table(a.id.size() + 1);
    Array<int32_t> match(a.id.size());
    MeasureBeside(
        state,
        [&] {
            std::fill(table.begin(), table.end(), -1);
            for (size_t j = 0; j < b.id.size(); ++j)
                table[static_cast<size_t>(b.id[j])] = static_cast<int32_t>(j);
            for (size_t i = 0; i < a.id.size(); ++i) match[i] = table[static_cast<size_t>(a.id[i])];
        },
        [&] {
            ThreadInterpolator_cls::ComputeRates(
                {.arrays = arrays, .dt = 0.5F, .variableNumber = DataLoader_cls::kVariable});
        });
}
BENCHMARK(RateVariable)
    ->Args({kMillion, 1})
    ->Args({10 * kMillion, 1})
    ->Args({kMillion, 0})
    ->Args({10 * kMillion, 0})
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Arguments: particles, and of how many types they are.
void EvaluateWithCurve(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    Snapshot a(count, 1);
    Array<uint8_t> type(a.id.size());
    std::mt19937 random(5);
    for (uint8_t& one : type)
        one = static_cast<uint8_t>(random() % static_cast<unsigned int>(state.range(1)));

    const ColorCurveTemplateSet_cls templates;
    ColorCurve_cls curve("", "", "1 1 1 1");
    curve.CopyColorFromP(templates.Get(5), true);  // "Spectrum", the one with most keys
    curve.mUseColorCurve.mValue = true;
    SnapAttributes_cls attributes;
    for (SnapAttribute_cls& attribute : attributes) attribute.curves.fill(&curve);

    constexpr int kTable = 1024;
    std::vector<std::array<float, 4>> table(kTable);
    for (int k = 0; k < kTable; ++k) {
        curve.GetColor4fNormal(table[static_cast<size_t>(k)].data(), static_cast<float>(k) / (kTable - 1));
    }
    Array<float> position(a.position.size());
    Array<float> radius(a.id.size());
    Array<float> value1(a.id.size());
    Array<float> color(4 * a.id.size());
    const SnapSource_cls source{.count = count,
                                .position = a.position.data(),
                                .velocity = a.velocity.data(),
                                .radius = a.radius.data(),
                                .radiusWork = a.radiusWork.data(),
                                .value1 = a.value1.data(),
                                .value1Work = a.value1Work.data(),
                                .type = type.data(),
                                .id = a.id.data()};
    const float tau = 0.25F;
    SnapData_cls snap;
    MeasureBeside(
        state,
        [&] {
            OnTwoThreads(a.id.size(), [&](size_t begin, size_t end) {
                for (size_t i = begin; i < end; ++i) {
                    for (size_t k = 3 * i; k < 3 * i + 3; ++k)
                        position[k] = a.position[k] + a.velocity[k] * tau;
                    radius[i] = a.radius[i] + a.radiusWork[i] * tau;
                    value1[i] = a.value1[i] + a.value1Work[i] * tau;
                    const int entry = std::clamp(static_cast<int>(value1[i] * (kTable - 1)), 0, kTable - 1);
                    std::memcpy(&color[4 * i], table[static_cast<size_t>(entry)].data(), 16);
                }
            });
        },
        [&] { snap.Build(source, attributes, tau, 1); });
}
BENCHMARK(EvaluateWithCurve)
    ->Args({10 * kMillion, 1})
    ->Args({10 * kMillion, 4})
    ->Args({kMillion, 1})
    ->Args({kMillion, 4})
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const wxInitializer wx;  // worker threads need it
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
