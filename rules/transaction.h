#pragma once

#include <functional>

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// Runs `work` as one transaction, on a connection that has none open. If another program's writes
/// get in between, so that the engine refuses to go on with what was read, or a key that was free
/// is taken meanwhile, all is taken back and `work` runs again, a bounded number of times: it must
/// change nothing but the store. Any other failure takes all back and goes on to the caller.
void in_transaction(ADODB::Connection& conn, const std::function<void()>& work);

/// Whether work that failed so may be run again from its beginning.
[[nodiscard]] bool came_in_between(const ADODB::Error& failure);

/// Inside a transaction: makes every other editor that writes to this definition or folder wait
/// until the transaction ends. Raises vanished_row if the row is gone. 0, the root, is always there
/// and is not held.
void hold_title_row(ADODB::Connection& conn, row_key replace_no);

/// Inside a transaction: makes every other editor that moves a folder wait. Two moves that each
/// look right by themselves could else hang two folders below each other.
void hold_moves(ADODB::Connection& conn);

}  // namespace ta_vorlumine
