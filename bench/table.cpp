#include "table.h"

#include <array>
#include <cstdio>
#include <string>

namespace bench {
namespace {

struct limited {
  const char* figure;
  const char* limit;
  const char* unit;
};
constexpr std::array<limited, 3> limits = {
    {{"ratio", "limit", ""}, {"measured_ms", "limit_ms", " ms"}, {"MiB", "limit_MiB", " MiB"}}};

std::string number(double value, const char* unit = "") {
  std::array<char, 32> text{};
  const int digits = value >= 100 || value == static_cast<int>(value) ? 0 : value >= 10 ? 1 : 3;
  std::snprintf(text.data(), text.size(), "%.*f%s", digits, value, unit);
  return text.data();
}

std::string figure_of(const benchmark::UserCounters& figures, const char* name,
                      const char* unit = "") {
  const auto found = figures.find(name);
  return found == figures.end() ? "" : number(found->second, unit);
}

void print(const std::array<std::string, 10>& cells) {
  std::printf("%-29s%12s%12s%8s  %-8s%-5s%12s%8s%12s   %s\n", cells[0].c_str(), cells[1].c_str(),
              cells[2].c_str(), cells[3].c_str(), cells[4].c_str(), cells[5].c_str(),
              cells[6].c_str(), cells[7].c_str(), cells[8].c_str(), cells[9].c_str());
  std::fflush(stdout);
}

}  // namespace

bool table::ReportContext(const Context& /*context*/) {
  print({"benchmark", "measured", "reference", "ratio", "limit", "", "prepared", "ratio",
         "round trips", "the reference is"});
  return true;
}

void table::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    const benchmark::UserCounters& figures = run.counters;
    std::string measured = figure_of(figures, "measured_ms", " ms");
    std::string limit;
    std::string verdict;
    for (const limited& kind : limits) {
      if (!figures.contains(kind.limit)) continue;
      const bool is_over = figures.at(kind.figure) > figures.at(kind.limit);
      has_miss_ = has_miss_ || is_over;
      limit = figure_of(figures, kind.limit, kind.unit);
      verdict = is_over ? "over" : "ok";
    }
    if (figures.contains("MiB")) measured = figure_of(figures, "MiB", " MiB");
    print({run.run_name.function_name, measured, figure_of(figures, "reference_ms", " ms"),
           figure_of(figures, "ratio"), limit, verdict, figure_of(figures, "prepared_ms", " ms"),
           figure_of(figures, "prepared_ratio"), figure_of(figures, "round_trips"),
           run.report_label});
  }
}

}  // namespace bench
