#pragma once

#include <cstdint>
#include <optional>

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// Makes the row of a new condition under the row `field`, for lines under the number `lines`,
/// advances the counters of rule rows and of conditions, and gives the row's key.
row_key insert_condition_row(ADODB::Connection& conn, row_key definition, row_key field,
                             row_key lines);

/// Makes the otherwise row of `field`, advances the counter of rule rows, and gives the row's key.
row_key insert_otherwise_row(ADODB::Connection& conn, row_key definition, row_key field);

/// The number of a condition's lines in a row of `replace_m`, 0 for none: where this editor leaves
/// null, a copied row holds 0.
[[nodiscard]] row_key lines_of(const ADODB::Recordset& row);

/// The number of the lines of the condition row `key`. A row that has none, as another program may
/// leave it, is given one first.
[[nodiscard]] row_key condition_number(ADODB::Connection& conn, row_key definition, row_key key);

/// The number of the first condition with lines among the children of `field`, 0 if there is none.
[[nodiscard]] row_key first_condition_number(ADODB::Connection& conn, row_key definition,
                                             row_key field);

/// The otherwise row that would stand alone under its field without the row `condition`; nothing if
/// the field has none, or has other conditions. The store says it: a tree on screen may not show
/// yet what another program has added or deleted.
[[nodiscard]] std::optional<row_key> lone_otherwise(ADODB::Connection& conn, row_key definition,
                                                    row_key condition);

}  // namespace ta_vorlumine
