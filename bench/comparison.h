#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

#include "made_store.h"

namespace bench {

/// What is timed, and what must be so before and after, untimed.
struct work {
  std::function<void()> run;
  std::function<void()> before = [] {};
  std::function<void()> after = [] {};
};

/// A deed of the product beside what it is held against; what is left out isn't compared.
struct comparison {
  work measured;
  std::string reference_is = {};        ///< in words
  work reference = {};                  ///< the same work without the product
  std::function<void()> prepared = {};  ///< the same look-ups, each statement prepared once
  double limit = 0;                     ///< of measured to reference
  double limit_ms = 0;                  ///< of measured
  double most_round_trips = 0;          ///< of measured, on a server
  double most_lateness_ms = 0;          ///< of measured, on a server whose answers come 2 ms late
};

/// Runs the works by turns, as often as the benchmark iterates, and reports the least time
/// of each. On a server the measured work is also timed where every way to it takes 1 ms, and its
/// round trips are counted.
void compare(benchmark::State& state, const made_store& store, const comparison& works);

/// The time that `work` takes, in milliseconds.
double milliseconds(const std::function<void()>& work);

/// The time that other programs disturbed least.
double least(const std::vector<double>& times);

}  // namespace bench
