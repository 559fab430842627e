#include "ratio.h"

#include <algorithm>
#include <chrono>

namespace bench {

double milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values.at(values.size() / 2);
}

void compare(benchmark::State& state, double limit, const std::function<void()>& reference,
             const std::function<void()>& measured) {
  std::vector<double> references;
  std::vector<double> times;
  for (auto _ : state) {
    references.push_back(milliseconds(reference));
    times.push_back(milliseconds(measured));
    state.SetIterationTime(times.back() / 1000);
  }
  report(state, limit, references, times);
}

void report(benchmark::State& state, double limit, const std::vector<double>& references,
            const std::vector<double>& times) {
  state.counters["reference_ms"] = median(references);
  state.counters["measured_ms"] = median(times);
  state.counters["ratio"] = median(times) / median(references);
  state.counters["limit"] = limit;
}

}  // namespace bench
