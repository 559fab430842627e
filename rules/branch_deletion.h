#pragma once

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// Deletes the row `key` of the definition's rule tree with all below it, lines included; the lines
/// of `key` itself are the caller's. Rows go from the leaves up, each condition's lines before its
/// row. What a failure leaves is what had not been reached. A level of the branch costs a server
/// one round trip, and so do the deletions together.
void delete_branch(ADODB::Connection& conn, row_key definition, row_key key);

/// Deletes all rule rows and lines of a definition.
void delete_rules(ADODB::Connection& conn, row_key definition);

/// Deletes the child row of a node that has exactly one, and nothing below it.
void delete_only_child(ADODB::Connection& conn, row_key definition, row_key key);

/// Deletes all rows of `replace` below the row `replace_no`, each with its rule rows and lines, and
/// that row. A row goes when nothing hangs below it any more.
void delete_folder_contents(ADODB::Connection& conn, row_key replace_no);

}  // namespace ta_vorlumine
