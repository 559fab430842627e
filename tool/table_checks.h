#pragma once

#include "tool/row_report.h"
#include "tool/store_rows.h"

namespace rule_store {

/// Holds folders and definitions against their shape.
void check_titles(const store_rows& rows, row_report& faults);

/// Holds the rule trees against their shape.
void check_rules(const store_rows& rows, row_report& faults);

/// Holds the lines of the conditions against their shape, and against the fields that they test.
void check_lines(const store_rows& rows, row_report& faults);

/// Holds the counters against the numbers in use.
void check_counters(const store_rows& rows, row_report& faults);

/// The highest number in use of each kind, 0 where there is none.
[[nodiscard]] counter_row highest_numbers(const store_rows& rows);

}  // namespace rule_store
