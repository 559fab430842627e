#include "conditions/condition_transaction.h"

#include <exception>

#include "rules/shared_state.h"
#include "rules/with_undo.h"

namespace ta_vorlumine {
namespace {

constexpr int most_tries = 5;

}  // namespace

void condition_transaction::begin() {
  cond_saved_ = false;
  shared().conn.BeginTrans();
}

void condition_transaction::run(const std::function<void()>& work) {
  // After a lost connection the dialog may stand here without a transaction; writing without one
  // would make its deletes final.
  if (!shared().conn.in_transaction()) begin();
  with_undo([&] { run_while_stale(work); }, [] { begin_anew(ADODB::purpose::looking); });
}

void condition_transaction::run_while_stale(const std::function<void()>& work) {
  for (int tries = 1;; ++tries) {
    try {
      return work();
    } catch (const ADODB::Error& failure) {
      if (failure.kind() != ADODB::failure_kind::stale || tries == most_tries) throw;
      begin_anew(ADODB::purpose::writing);
    }
  }
}

void condition_transaction::begin_anew(ADODB::purpose purpose) {
  auto& conn = shared().conn;
  if (conn.in_transaction()) conn.RollbackTrans();
  conn.BeginTrans(purpose);
}

void condition_transaction::commit() {
  shared().conn.CommitTrans();
  cond_saved_ = true;
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
