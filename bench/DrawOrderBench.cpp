// The draw order and shadows, each beside a plain reference in the same run.

#include <wx/init.h>

#include <array>
#include <bit>
#include <cmath>
#include <random>

#include "data/clsPreference.h"
#include "render/clsDrawOption.h"
#include "render/clsDrawOrder.h"
#include "render/clsShadowSettings.h"
#include "render/clsShadowVolume.h"
#include "support/Beside.h"

namespace {

constexpr int kMillion = 1000000;

/// Particles in a unit cube, or crowded towards its middle.
std::vector<float> MakePositions(int count) {
    std::mt19937 random(1);
    std::normal_distribution<float> normal(0.0F, 0.3F);
    std::vector<float> positions(3 * static_cast<size_t>(count));
    for (float& number : positions) number = normal(random);
    return positions;
}

/// The reference: one thread, three rounds of eleven bits, from the entries into warm memory.
class PlainRadixSort_cls {
  public:
    explicit PlainRadixSort_cls(size_t count) { mScratch.Reserve(count); }

    ArrayAndIndex_cls* Sort(ArrayAndIndex_cls* entries, size_t count) {
        static std::array<std::array<uint32_t, 2048>, 3> places;
        places = {};
        for (size_t i = 0; i < count; ++i) {
            const uint32_t order = OrderOf(entries[i].mKey);
            ++places[0][order & 2047U];
            ++places[1][(order >> 11) & 2047U];
            ++places[2][order >> 22];
        }
        ArrayAndIndex_cls* from = entries;
        ArrayAndIndex_cls* to = mScratch.Get();
        for (uint32_t round = 0; round < 3; ++round) {
            uint32_t place = 0;
            for (uint32_t& bucket : places[round]) place += std::exchange(bucket, place);
            for (size_t i = 0; i < count; ++i) {
                to[places[round][(OrderOf(from[i].mKey) >> (11 * round)) & 2047U]++] = from[i];
            }
            std::swap(from, to);
        }
        return from;
    }

  private:
    static uint32_t OrderOf(float key) {
        const auto bits = std::bit_cast<uint32_t>(key);
        return (bits & 0x80000000U) != 0 ? ~bits : bits | 0x80000000U;
    }

    EntryArray_cls mScratch;
};

/// Arguments: entries, sort type.
void SortParallel(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    const std::vector<float> positions = MakePositions(static_cast<int>(count));
    Preference_cls preference;
    preference.mSortType.mValue = static_cast<unsigned int>(state.range(1));
    ZSort_cls::mspCPreferenceLink = &preference;
    EntryArray_cls entries;
    EntryArray_cls plainEntries;
    entries.Reserve(count);
    plainEntries.Reserve(count);
    PlainRadixSort_cls plain(count);
    ZSort_cls sort;
    const auto prepare = [&] {
        ZSort_cls::ZSortPrepare(entries.Get(), static_cast<long long>(count), 1, positions.data(),
                                {0.0, 0.0, 3.0}, {0.0, 0.0, -1.0}, ZSort_cls::Mode::kFarFirst);
        std::copy_n(entries.Get(), count, plainEntries.Get());
    };
    prepare();
    sort.ZSortParallel(entries, count);
    MeasureBeside(
        state, [&] { plain.Sort(plainEntries.Get(), count); }, [&] { sort.ZSortParallel(entries, count); },
        prepare);
    ZSort_cls::mspCPreferenceLink = nullptr;
}
BENCHMARK(SortParallel)
    ->Args({10 * kMillion, 0})
    ->Args({10 * kMillion, 1})
    ->Args({10 * kMillion, 3})
    ->Args({kMillion, 0})
    ->Args({100001, 0})
    ->Iterations(9)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Keys included, beside the sort alone. Arguments: particles, whether the view is orthographic.
void WholeDrawOrder(benchmark::State& state) {
    const auto count = static_cast<size_t>(state.range(0));
    const std::vector<float> positions = MakePositions(static_cast<int>(count));
    EntryArray_cls plainEntries;
    plainEntries.Reserve(count);
    PlainRadixSort_cls plain(count);
    DrawOrder_cls order;
    const DrawOrder_cls::View view{
        .mCamera = {0.0, 0.0, 3.0}, .mDirection = {0.0, 0.0, -1.0}, .mIsOrthographic = state.range(1) != 0};
    const auto make = [&] {
        return order.ZSortAtFBO0(static_cast<int>(count), 1, positions.data(),
                                 DrawOption_cls::kSortTransparent, view);
    };
    make();
    MeasureBeside(
        state, [&] { plain.Sort(plainEntries.Get(), count); }, make,
        [&] {
            ZSort_cls::ZSortPrepare(
                plainEntries.Get(), static_cast<long long>(count), 1, positions.data(), view.mCamera,
                view.mDirection,
                view.mIsOrthographic ? ZSort_cls::Mode::kProjection : ZSort_cls::Mode::kFarFirst);
        });
}
BENCHMARK(WholeDrawOrder)
    ->Args({10 * kMillion, 0})
    ->Args({10 * kMillion, 1})
    ->Args({100000, 0})
    ->Iterations(9)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Shadows of one light, infinitely far or at a place. Arguments: spheres, whether the light has a place.
class ShadowScene_cls {
  public:
    explicit ShadowScene_cls(const benchmark::State& state)
        : mCount(static_cast<size_t>(state.range(0))),
          mPositions(MakePositions(static_cast<int>(mCount))),
          mRadii(mCount, 0.1F / std::cbrt(static_cast<float>(mCount))),
          mEntries(mCount) {
        if (state.range(1) != 0) mLight = {2.0F, 1.0F, 3.0F, 1.0F};
        for (size_t i = 0; i < mCount; ++i)
            mEntries[i] = {.mIndex = static_cast<int32_t>(i), .mKey = 0.0F, .mAlpha = 1.0F};
        mSettings.mLength.mValue = 1.0F;
    }
    std::vector<LightProjection_cls::Place> Project() const {
        const LightProjection_cls projection(mLight);
        std::vector<LightProjection_cls::Place> places(mCount);
        for (size_t i = 0; i < mCount; ++i) places[i] = projection.Project(&mPositions[3 * i]);
        return places;
    }
    /// Every sphere with every other.
    size_t CountByPairs() const {
        const LightProjection_cls projection(mLight);
        const auto places = Project();
        size_t count = 0;
        for (const auto& place : places) {
            for (const auto& sphere : places) {
                const float behind = place.mDepth - sphere.mDepth;
                if (!(behind > 0.0F) || behind > mSettings.mLength.mValue) continue;
                const double radius = projection.ProjectRadius(sphere.mDepth, mRadii[0]);
                double squared = 0.0;
                for (size_t d = 0; d < 3; ++d) squared += std::pow(place.mAcross[d] - sphere.mAcross[d], 2);
                if (squared > radius * radius) continue;
                ++count;
                break;
            }
        }
        return count;
    }
    size_t Count() {
        const auto shadows = mShadows.FindShadows(mEntries, mPositions.data(), mRadii, {&mLight, 1});
        return mCount - static_cast<size_t>(std::ranges::count(shadows, 0));
    }

  private:
    size_t mCount;
    std::vector<float> mPositions;
    std::vector<float> mRadii;
    std::vector<ArrayAndIndex_cls> mEntries;
    ShadowVolume_cls::Light mLight{1.0F, 2.0F, 3.0F, 0.0F};
    ShadowSettings_cls mSettings;
    ShadowVolume_cls mShadows{mSettings};
};

void ShadowsBesidePairs(benchmark::State& state) {
    ShadowScene_cls scene(state);
    if (scene.Count() != scene.CountByPairs()) state.SkipWithError("the shadows differ");
    MeasureBeside(
        state, [&] { benchmark::DoNotOptimize(scene.CountByPairs()); },
        [&] { benchmark::DoNotOptimize(scene.Count()); });
}
BENCHMARK(ShadowsBesidePairs)
    ->Args({20000, 0})
    ->Args({20000, 1})
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// The same beside what no search can do without: where each particle is in the light.
void ShadowsBesideProjection(benchmark::State& state) {
    ShadowScene_cls scene(state);
    MeasureBeside(
        state, [&] { benchmark::DoNotOptimize(scene.Project()); },
        [&] { benchmark::DoNotOptimize(scene.Count()); });
}
BENCHMARK(ShadowsBesideProjection)
    ->Args({kMillion, 0})
    ->Args({kMillion, 1})
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const wxInitializer wx;  // worker threads need it
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
