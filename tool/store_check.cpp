#include "tool/store_check.h"

#include <algorithm>

#include "rules/text_limits.h"
#include "store/text.h"
#include "tool/faults.h"
#include "tool/rule_check.h"

namespace rule_store {
namespace {

using ta_vorlumine::longest_text;

void check_parent(const title_row& row, const store_rows& rows, fault_list& faults) {
  if (row.parent == 0) return;
  const title_row* parent = rows.title(row.parent);
  if (!parent) {
    faults.add("replace", {row.no}, "its folder " + text_of(row.parent) + " does not exist");
  } else if (parent->kind != "F") {
    faults.add("replace", {row.no}, "lies under " + text_of(row.parent) + ", which is no folder");
  }
}

void check_titles(const store_rows& rows, fault_list& faults) {
  std::map<key, key> parents;
  for (const title_row& row : rows.titles) {
    parents[row.no] = row.parent;
    if (row.kind != "F" && row.kind != "C") {
      faults.add("replace", {row.no}, "unknown kind \"" + row.kind + "\"");
    }
    const std::size_t length = ADODB::character_count(row.title.text());
    if (length > longest_text) {
      faults.add("replace", {row.no}, "a title of " + std::to_string(length) + " characters");
    }
    check_parent(row, rows, faults);
  }
  for (const auto& [no, loop] : loops_in(parents)) {
    faults.add("replace", {no}, "lies in a loop: " + loop);
  }
}

void check_counter(const char* name, key counter, key highest, fault_list& faults) {
  if (counter >= highest) return;
  faults.add("seqno", {},
             std::string(name) + " is " + text_of(counter) + ", behind the number " +
                 text_of(highest) + " in use");
}

void check_counters(const store_rows& rows, fault_list& faults) {
  if (rows.counters.size() != 1) {
    faults.add("seqno", {}, std::to_string(rows.counters.size()) + " rows instead of one");
  }
  if (rows.counters.empty()) return;
  counter_row highest = {0, 0, 0};
  for (const title_row& row : rows.titles) highest.replace = std::max(highest.replace, row.no);
  for (const rule_row& row : rows.rules) {
    highest.replace_m = std::max(highest.replace_m, row.no);
    highest.replace_cond = std::max(highest.replace_cond, row.lines);
  }
  for (const line_row& line : rows.lines) {
    highest.replace_cond = std::max(highest.replace_cond, line.condition);
  }
  const counter_row& counters = rows.counters.front();
  check_counter("replace", counters.replace, highest.replace, faults);
  check_counter("replace_m", counters.replace_m, highest.replace_m, faults);
  check_counter("replace_cond", counters.replace_cond, highest.replace_cond, faults);
}

}  // namespace

std::vector<std::string> faults_of(const store_rows& rows) {
  fault_list faults;
  check_titles(rows, faults);
  check_rules(rows, faults);
  check_lines(rows, faults);
  check_counters(rows, faults);
  return faults.lines();
}

}  // namespace rule_store
