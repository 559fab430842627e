#pragma once

#include "tool/faults.h"
#include "tool/store_rows.h"

namespace rule_store {

/// Holds the rule trees against their shape.
void check_rules(const store_rows& rows, fault_list& faults);

/// Holds the lines of the conditions against their shape, and against the fields that they test.
void check_lines(const store_rows& rows, fault_list& faults);

}  // namespace rule_store
