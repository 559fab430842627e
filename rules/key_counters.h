#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// The last number used of the counter `name`: "replace", "replace_m" or "replace_cond". Tells the
/// user if the table of counters is empty, and gives 0 then.
std::int64_t getfrom_seqno(ADODB::Connection& conn, std::string_view name);

/// Adds 1 to the counter `name`.
void update_seqno(ADODB::Connection& conn, std::string_view name);

/// Inserts a row of `replace`: calls `insert` with the number behind `last_number`, which the
/// caller has read from the counter. If the store holds that key already, because another program
/// was quicker or a crash left the counter behind, the counter is advanced and the next number
/// tried, outside a transaction and for a bounded number of times. Gives the key that went in.
/// Advancing the counter past it is the caller's, last of all.
std::int16_t insert_title_row(ADODB::Connection& conn, std::int64_t last_number,
                              const std::function<void(std::int16_t key)>& insert);

/// The same for a row of `replace_m` in the rule tree of `definition`, whose key lies above all
/// keys of that definition: a child's number is greater than its parent's.
std::int16_t insert_rule_row(ADODB::Connection& conn, row_key definition, std::int64_t last_number,
                             const std::function<void(std::int16_t key)>& insert);

/// The next number under which `definition` has no lines. The counter is advanced only past
/// numbers that proved to be taken, so that a crash, or another program that drew the number
/// meanwhile, never mixes the lines of two conditions.
[[nodiscard]] std::int16_t free_condition_number(ADODB::Connection& conn, row_key definition);

}  // namespace ta_vorlumine
