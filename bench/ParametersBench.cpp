#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <random>
#include <vector>

#include "timeline/clsParameters.h"

// Evaluating key-framed parameters. Figures are per parameter (time / items).

namespace {

constexpr double kFrames = 1000.0;

/// Keys in no order of time; a parameter sorts them. Roughly even, as keys by the thousand are that come from
/// a path or from data, or anywhere.
std::vector<KeyFrame_cls> MakeKeys(size_t count, bool even, std::mt19937& random) {
    std::vector<KeyFrame_cls> keys(count);
    std::uniform_real_distribution<double> anywhere;
    double place = 0.0;
    for (KeyFrame_cls& key : keys) {
        const double t = even ? (place++ + anywhere(random)) / static_cast<double>(count) : anywhere(random);
        key.Set(t, KeyFrame_cls::kHermiteAuto, std::sin(20.0 * t), 0.0, 0.0, false);
    }
    return keys;
}

/// A scene: parameters that all have keys.
class Scene_cls {
  public:
    Scene_cls(size_t parameters, size_t keys, bool even) {
        std::mt19937 random(1);
        for (size_t i = 0; i < parameters; ++i)
            mParameters.emplace_back().SetState({MakeKeys(keys, even, random), true, 0});
    }
    std::deque<Parameters_cls> mParameters;
};

/// What the evaluation is measured against: halving and a cubic, with nothing of the rules for the display
/// step, periods and kinds of segments.
double PlainCubic(const std::vector<KeyFrame_cls>& keys, double t) {
    const auto next = std::upper_bound(keys.begin() + 1, keys.end() - 1, t,
                                       [](double time, const KeyFrame_cls& key) { return time < key.mTime; });
    const KeyFrame_cls& a = *(next - 1);
    const KeyFrame_cls& b = *next;
    const double h = b.mTime - a.mTime;
    const double s = (t - a.mTime) / h;
    const double m0 = a.mVelocity * h;
    const double m1 = b.mVelocity * h;
    return a.mValue + s * (m0 + s * (3.0 * (b.mValue - a.mValue) - 2.0 * m0 - m1 +
                                     s * (2.0 * (a.mValue - b.mValue) + m0 + m1)));
}

/// The next frame's time, from 0 to 1 and round again.
double NextFrame(double t) {
    return t + 1.0 / kFrames < 1.0 ? t + 1.0 / kFrames : 0.0;
}

void FrameOfParameters(benchmark::State& state) {
    Scene_cls scene(200, 50, false);
    double t = 0.0;
    for (auto _ : state) {
        t = NextFrame(t);
        for (Parameters_cls& parameter : scene.mParameters)
            benchmark::DoNotOptimize(parameter.GetInterpolatedValue(t, 1.0 / kFrames));
    }
    state.SetItemsProcessed(state.iterations() * 200);
}
BENCHMARK(FrameOfParameters);

void FrameOfPlainCubics(benchmark::State& state) {
    const Scene_cls scene(200, 50, false);
    double t = 0.0;
    for (auto _ : state) {
        t = NextFrame(t);
        for (const Parameters_cls& parameter : scene.mParameters)
            benchmark::DoNotOptimize(PlainCubic(parameter.GetKeys(), t));
    }
    state.SetItemsProcessed(state.iterations() * 200);
}
BENCHMARK(FrameOfPlainCubics);

/// Times in no order: nothing but the search decides.
template <class Function>
void AnyTimes(benchmark::State& state, bool even, const Function& evaluate) {
    const Scene_cls scene(1, static_cast<size_t>(state.range(0)), even);
    std::mt19937 random(1);
    std::vector<double> times(4096);
    for (double& t : times) t = std::uniform_real_distribution<double>()(random);
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(evaluate(scene.mParameters.front(), times[i]));
        i = (i + 1) % times.size();
    }
    state.SetItemsProcessed(state.iterations());
}

void OneParameter(benchmark::State& state, bool even) {
    AnyTimes(state, even,
             [](const Parameters_cls& parameter, double t) { return parameter.Evaluate(t, 1.0 / kFrames); });
}
BENCHMARK_CAPTURE(OneParameter, even, true)->RangeMultiplier(10)->Range(10, 100000);
BENCHMARK_CAPTURE(OneParameter, anywhere, false)->RangeMultiplier(10)->Range(10, 100000);

void OnePlainCubic(benchmark::State& state, bool even) {
    AnyTimes(state, even,
             [](const Parameters_cls& parameter, double t) { return PlainCubic(parameter.GetKeys(), t); });
}
BENCHMARK_CAPTURE(OnePlainCubic, even, true)->RangeMultiplier(10)->Range(10, 100000);

}  // namespace

BENCHMARK_MAIN();
