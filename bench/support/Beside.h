#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

/// Runs a plain reference and the code under test in turn, so that both meet the same moments of a shared
/// machine, and reports the medians in milliseconds and their ratio. Before each of them `prepare` is run,
/// outside the time.
template <class Plain, class Ours, class Prepare>
void MeasureBeside(benchmark::State& state, const Plain& plain, const Ours& ours, const Prepare& prepare) {
    using Clock = std::chrono::steady_clock;
    const auto milliseconds = [](const auto& work) {
        const auto start = Clock::now();
        work();
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    };
    std::vector<double> plainTimes;
    std::vector<double> ourTimes;
    for ([[maybe_unused]] const auto round : state) {
        prepare();
        plainTimes.push_back(milliseconds(plain));
        prepare();
        ourTimes.push_back(milliseconds(ours));
        state.SetIterationTime(ourTimes.back() / 1000.0);
    }
    const auto median = [](std::vector<double>& times) {
        std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2), times.end());
        return times[times.size() / 2];
    };
    state.counters["plain_ms"] = median(plainTimes);
    state.counters["ours_ms"] = median(ourTimes);
    state.counters["ratio"] = state.counters["ours_ms"] / state.counters["plain_ms"];
}

template <class Plain, class Ours>
void MeasureBeside(benchmark::State& state, const Plain& plain, const Ours& ours) {
    MeasureBeside(state, plain, ours, [] {});
}
