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
constexpr std::array<limited, 5> limits = {{{"ratio", "limit", ""},
                                            {"measured_ms", "limit_ms", " ms"},
                                            {"MiB", "limit_MiB", " MiB"},
                                            {"round_trips", "limit_round_trips", " trips"},
                                            {"lateness_ms", "limit_lateness_ms", " ms late"}}};

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

void print(const std::array<std::string, 11>& cells) {
  constexpr std::array<int, 11> widths = {-29, 12, 12, 8, 12, 8, 13, 12, -31, -7, 0};
  for (std::size_t i = 0; i < cells.size(); ++i)
    std::printf("%*s%s", widths.at(i), cells.at(i).c_str(), widths.at(i) < 0 ? " " : "  ");
  std::printf("\n");
  std::fflush(stdout);
}

}  // namespace

bool table::ReportContext(const Context& /*context*/) {
  print({"benchmark", "measured", "reference", "ratio", "prepared", "ratio", "1 ms away",
         "round trips", "at most", "", "the reference is"});
  return true;
}

void table::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    const benchmark::UserCounters& figures = run.counters;
    const auto measured = figures.contains("MiB") ? figure_of(figures, "MiB", " MiB")
                                                  : figure_of(figures, "measured_ms", " ms");
    std::string limit;
    bool is_over = false;
    for (const limited& kind : limits) {
      if (!figures.contains(kind.limit)) continue;
      limit += (limit.empty() ? "" : ", ") + figure_of(figures, kind.limit, kind.unit);
      is_over = is_over || figures.at(kind.figure) > figures.at(kind.limit);
    }
    has_miss_ = has_miss_ || is_over;
    print({run.run_name.function_name, measured, figure_of(figures, "reference_ms", " ms"),
           figure_of(figures, "ratio"), figure_of(figures, "prepared_ms", " ms"),
           figure_of(figures, "prepared_ratio"), figure_of(figures, "distant_ms", " ms"),
           figure_of(figures, "round_trips"), limit, is_over ? "over" : "ok", run.report_label});
  }
}

}  // namespace bench
