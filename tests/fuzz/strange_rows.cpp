#include "strange_rows.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool/copied_tables.h"

namespace harness {
namespace {

using rule_store::copied_tables;

/// Few keys, so that rows meet.
ADODB::parameter any_key(FuzzedDataProvider& choices) {
  return std::int64_t{choices.ConsumeIntegralInRange(0, 12)};
}

ADODB::parameter any_word(FuzzedDataProvider& choices) {
  return choices.PickValueInArray<std::string>(
      {"F", "D", "C", "R", "T",    "S",     "N",     "B",   "F1",         "F2",
       "0", "1", "2", "3", "-3.5", "1e300", "9e999", "007", "2005/01/31", "2005-02-30"});
}

ADODB::parameter any_cell(std::string_view column, FuzzedDataProvider& choices) {
  switch (choices.ConsumeIntegralInRange(0, 15)) {
    case 0:
      return std::monostate();
    case 1:
      return choices.ConsumeRandomLengthString(200);
    default:
      return column.ends_with("no") ? any_key(choices) : any_word(choices);
  }
}

}  // namespace

void add_strange_rows(test_store& store, FuzzedDataProvider& choices) {
  store.ignore_checks();
  for (int left = choices.ConsumeIntegralInRange(0, 40); left > 0; --left) {
    const auto& table =
        copied_tables[choices.ConsumeIntegralInRange<std::size_t>(0, copied_tables.size() - 1)];
    std::vector<ADODB::parameter> cells;
    for (const std::string_view column : column_names(table))
      cells.push_back(any_cell(column, choices));
    try {
      store.run({table.insert, std::move(cells)});
    } catch (const ADODB::Error&) {
      continue;  // two rows of one key, or none
    }
  }
}

}  // namespace harness
