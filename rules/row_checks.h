#pragma once

#include "rules/outdated_view.h"
#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// The select of a row of `replace`.
[[nodiscard]] ADODB::statement title_row(row_key replace_no);

/// Raises vanished_row unless `replace` holds the row.
void require_title_row(ADODB::Connection& conn, row_key replace_no);

/// Raises vanished_row unless the store holds the definition and, but for the root, the row `key`
/// of its rule tree.
void require_rule_row(ADODB::Connection& conn, row_key definition, row_key key);

/// Raises occupied_branch also, if a row hangs below that one already.
void require_empty_branch(ADODB::Connection& conn, row_key definition, row_key key);

/// Whether rows hang below the row `key` of the definition's rule tree; 0 is its root.
[[nodiscard]] bool has_children(ADODB::Connection& conn, row_key definition, row_key key);

}  // namespace ta_vorlumine
