#pragma once

#include <ostream>

#include "tool/copied_tables.h"

namespace rule_store {

/// Writes the five tables as one JSON object (UTF-8), a line for each row and with every column.
/// Bytes that are no UTF-8 become U+FFFD.
void print_json(const table_rows& tables, std::ostream& output);

}  // namespace rule_store
