#include "tool/store_check.h"

#include <algorithm>

#include "tool/table_checks.h"

namespace rule_store {
namespace {

void check_counter(const char* name, key counter, key highest, row_report& faults) {
  const std::string text = std::string(name) + " is " + text_of(counter);
  if (counter < highest) {
    faults.add("seqno", {}, text + ", behind the number " + text_of(highest) + " in use");
  }
  if (counter > highest_key) {
    faults.add("seqno", {}, text + ", above 32767, the highest number");
  }
}

}  // namespace

counter_row highest_numbers(const store_rows& rows) {
  counter_row highest = {0, 0, 0};
  for (const title_row& row : rows.titles) highest.replace = std::max(highest.replace, row.no);
  for (const rule_row& row : rows.rules) {
    highest.replace_m = std::max(highest.replace_m, row.no);
    highest.replace_cond = std::max(highest.replace_cond, row.lines);
  }
  for (const line_row& line : rows.lines) {
    highest.replace_cond = std::max(highest.replace_cond, line.condition);
  }
  return highest;
}

void check_counters(const store_rows& rows, row_report& faults) {
  if (rows.counters.size() != 1) {
    faults.add("seqno", {}, std::to_string(rows.counters.size()) + " rows instead of one");
  }
  if (rows.counters.empty()) return;
  const counter_row highest = highest_numbers(rows);
  const counter_row& counters = rows.counters.front();
  check_counter("replace", counters.replace, highest.replace, faults);
  check_counter("replace_m", counters.replace_m, highest.replace_m, faults);
  check_counter("replace_cond", counters.replace_cond, highest.replace_cond, faults);
}

std::vector<std::string> faults_of(const store_rows& rows) {
  row_report faults;
  check_titles(rows, faults);
  check_rules(rows, faults);
  check_lines(rows, faults);
  check_counters(rows, faults);
  return faults.lines();
}

}  // namespace rule_store
