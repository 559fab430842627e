#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace bench {

/// Runs `reference` and `measured` by turns, as often as the benchmark iterates, and reports the
/// medians of both in milliseconds and their ratio beside its limit.
void compare(benchmark::State& state, double limit, const std::function<void()>& reference,
             const std::function<void()>& measured);

/// The time that `work` takes, in milliseconds.
double milliseconds(const std::function<void()>& work);

double median(std::vector<double> values);

}  // namespace bench
