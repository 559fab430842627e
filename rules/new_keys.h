#pragma once

#include <cstdint>
#include <string_view>

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// The last number used of the counter `name`: "replace", "replace_m" or "replace_cond". Tells the
/// user if the table of counters is empty, and gives 0 then.
std::int64_t getfrom_seqno(ADODB::Connection& conn, std::string_view name);

/// Adds 1 to the counter `name`.
void update_seqno(ADODB::Connection& conn, std::string_view name);

// Each of these gives the number behind its counter, or a later one if a crash or another program
// left the counter behind numbers that are in use; the counter is then advanced to the number
// before. Advancing it past the number is the caller's, when the row stands. They say nothing of a
// missing counter: whoever runs a command asks getfrom_seqno once, before its transaction.

/// For a row of `replace`.
[[nodiscard]] row_key next_title_key(ADODB::Connection& conn);

/// For a row of the definition's rule tree; it lies above all keys of that definition, as a child's
/// number must be greater than its parent's.
[[nodiscard]] row_key next_rule_key(ADODB::Connection& conn, row_key definition);

/// For a condition: a number under which `definition` has neither lines nor a condition.
[[nodiscard]] row_key next_condition_number(ADODB::Connection& conn, row_key definition);

}  // namespace ta_vorlumine
