// What the colour-curve editor makes of the values of a frame, beside a plain count into bins.

#include <cmath>
#include <random>

#include "render/clsValueHistogram.h"
#include "support/Beside.h"

namespace {

constexpr size_t kMillion = 1000000;
constexpr size_t kBins = 96;

void RangeAndBins(benchmark::State& state) {
    std::mt19937 random(3);
    std::normal_distribution<float> speed(2.0F, 0.5F);
    std::vector<float> values(kMillion);
    for (float& value : values) value = speed(random);
    std::vector<float> bins(kBins);
    std::vector<float> copy;
    MeasureBeside(
        state,
        [&] {
            float min = copy[0];
            float max = copy[0];
            for (const float value : copy) {
                min = std::min(min, value);
                max = std::max(max, value);
            }
            const float factor = kBins / (max - min);
            for (const float value : copy)
                bins[std::min(static_cast<size_t>((value - min) * factor), kBins - 1)] += 1.0F;
            benchmark::DoNotOptimize(bins.data());
        },
        [&] {
            const ValueHistogram_cls histogram(std::move(copy));
            bins = histogram.GetBins(histogram.GetRange(), kBins);
            benchmark::DoNotOptimize(bins.data());
        },
        [&] { copy = values; });
}
BENCHMARK(RangeAndBins)->Iterations(20)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
