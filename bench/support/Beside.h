#pragma once

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <vector>

/// Runs a plain reference and the code under test in turn, so that both meet the same moments of a shared
/// machine, and reports the medians in milliseconds and their ratio; `cpu_ratio` is that of the processor
/// time of all threads, which holds on a busy machine too. Before each of them `prepare` is run, outside the
/// time.
template <class Plain, class Ours, class Prepare>
void MeasureBeside(benchmark::State& state, const Plain& plain, const Ours& ours, const Prepare& prepare) {
    using Clock = std::chrono::steady_clock;
    const auto processorTime = [] {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
    };
    struct Times {
        std::vector<double> wall, processor;
    };
    const auto measure = [processorTime](const auto& work, Times& times) {
        const auto start = Clock::now();
        const double startProcessor = processorTime();
        work();
        times.wall.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        times.processor.push_back(processorTime() - startProcessor);
    };
    Times plainTimes;
    Times ourTimes;
    for ([[maybe_unused]] const auto round : state) {
        prepare();
        measure(plain, plainTimes);
        prepare();
        measure(ours, ourTimes);
        state.SetIterationTime(ourTimes.wall.back() / 1000.0);
    }
    const auto median = [](std::vector<double>& times) {
        std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2), times.end());
        return times[times.size() / 2];
    };
    state.counters["plain_ms"] = median(plainTimes.wall);
    state.counters["ours_ms"] = median(ourTimes.wall);
    state.counters["ratio"] = state.counters["ours_ms"] / state.counters["plain_ms"];
    state.counters["cpu_ratio"] = median(ourTimes.processor) / median(plainTimes.processor);
}

template <class Plain, class Ours>
void MeasureBeside(benchmark::State& state, const Plain& plain, const Ours& ours) {
    MeasureBeside(state, plain, ours, [] {});
}
