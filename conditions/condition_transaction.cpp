#include "conditions/condition_transaction.h"

#include <exception>

#include "rules/shared_state.h"
#include "rules/transaction.h"
#include "rules/with_undo.h"

namespace ta_vorlumine {
namespace {

constexpr int most_tries = 20;

bool is_lost(const ADODB::Error& failure) {
  return failure.kind() == ADODB::failure_kind::lost_connection;
}

/// Runs `work`, and once more from `begin_again` on while another program gets in between, or where
/// its failure at the first try is one that `may_repeat` allows.
template <class Work, class Begin>
auto run_while_in_between(Work work, Begin begin_again,
                          bool (*may_repeat)(const ADODB::Error&) = came_in_between) {
  for (int tries = 1;; ++tries) {
    try {
      return work();
    } catch (const ADODB::Error& failure) {
      const bool again = came_in_between(failure) || (tries == 1 && may_repeat(failure));
      if (!again || tries == most_tries) throw;
      begin_again();
    }
  }
}

}  // namespace

void condition_transaction::begin() {
  cond_saved_ = false;
  shared().conn.BeginTrans();
}

void condition_transaction::run(const std::function<void()>& work) {
  // After a lost connection the dialog may stand here without a transaction; writing without one
  // would make its deletes final.
  if (!shared().conn.in_transaction()) begin();
  // The deletions that a lost connection took back need no repetition: OK writes all lines anew.
  const auto begin_again = [] { begin_anew(ADODB::purpose::writing); };
  with_undo([&] { run_while_in_between(work, begin_again, is_lost); },
            [] { begin_anew(ADODB::purpose::looking); });
}

void condition_transaction::look(const std::function<void()>& work) {
  auto& conn = shared().conn;
  if (!conn.in_transaction()) return;
  try {
    work();
  } catch (const ADODB::Error& failure) {
    if (!is_lost(failure)) throw;
    conn.RollbackTrans();
  }
}

bool condition_transaction::store(const std::function<bool()>& work) {
  bool stored = false;
  with_undo([&] { stored = run_while_in_between([&] { return store_once(work); }, [] {}); },
            [] { begin_anew(ADODB::purpose::looking); });
  if (!stored) begin_anew(ADODB::purpose::looking);
  return stored;
}

bool condition_transaction::store_once(const std::function<bool()>& work) {
  auto& state = shared();
  begin_anew(ADODB::purpose::writing);
  hold_title_row(state.conn, state.f_replace_no);
  if (!work()) return false;
  state.conn.CommitTrans();
  cond_saved_ = true;
  return true;
}

void condition_transaction::begin_anew(ADODB::purpose purpose) {
  auto& conn = shared().conn;
  if (conn.in_transaction()) conn.RollbackTrans();
  conn.BeginTrans(purpose);
}

// A rollback fails only where the connection is lost, and then the engine rolls back by itself. The
// editor, which reads its tree next, tells the user.
void condition_transaction::end() noexcept {
  try {
    if (!cond_saved_ && shared().conn.in_transaction()) shared().conn.RollbackTrans();
  } catch (const std::exception&) {
  }
}

}  // namespace ta_vorlumine
