#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <vector>

namespace bench {

/// Runs `reference` and `measured` by turns, as often as the benchmark iterates, and reports the
/// medians of both in milliseconds and their ratio beside its limit.
void compare(benchmark::State& state, double limit, const std::function<void()>& reference,
             const std::function<void()>& measured);

/// Reports the medians of times in milliseconds in the same way.
void report(benchmark::State& state, double limit, const std::vector<double>& references,
            const std::vector<double>& times);

/// The time that `work` takes, in milliseconds.
double milliseconds(const std::function<void()>& work);

double median(std::vector<double> values);

}  // namespace bench
