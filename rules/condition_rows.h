#pragma once

#include <cstdint>
#include <optional>

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// Makes the row of a new condition under the row `field` and advances the counters of rule rows
/// and of conditions. The condition's lines have the number behind the counter of conditions.
void insert_condition_row(ADODB::Connection& conn, row_key definition, row_key field);

/// Makes the otherwise row of `field`, advances the counter of rule rows, and gives the row's key.
row_key insert_otherwise_row(ADODB::Connection& conn, row_key definition, row_key field);

/// The otherwise row that would stand alone under its field without the row `condition`; nothing if
/// the field has none, or has other conditions. The store says it: a tree on screen may not show
/// yet what another program has added or deleted.
[[nodiscard]] std::optional<row_key> lone_otherwise(ADODB::Connection& conn, row_key definition,
                                                    row_key condition);

}  // namespace ta_vorlumine
