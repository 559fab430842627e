#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace bench {

/// Prints a line for each benchmark as soon as it is over: its time, what it is held against, and
/// whether it keeps within its limit.
class table : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;

  /// Whether a benchmark was over its limit.
  [[nodiscard]] bool has_miss() const { return has_miss_; }

 private:
  bool has_miss_ = false;
};

}  // namespace bench
