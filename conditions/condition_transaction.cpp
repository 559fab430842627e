#include "conditions/condition_transaction.h"

#include <exception>

#include "browser/replace_form.h"
#include "editor/replace_create.h"

namespace ta_vorlumine {

using platform::form;

namespace {

constexpr int most_tries = 5;

}  // namespace

void condition_transaction::begin() {
  cond_saved_ = false;
  form<replaceForm>().conn.BeginTrans();
}

void condition_transaction::run(const std::function<void()>& work) {
  // After a lost connection the dialog may stand here without a transaction; writing without one
  // would make its deletes final.
  if (!form<replaceForm>().conn.in_transaction()) begin();
  try {
    run_while_stale(work);
  } catch (...) {
    const std::exception_ptr first = std::current_exception();
    try {
      begin_anew(ADODB::purpose::looking);
    } catch (const std::exception&) {
      // The next run begins; the first failure is the one to tell.
    }
    std::rethrow_exception(first);
  }
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
  auto& conn = form<replaceForm>().conn;
  if (conn.in_transaction()) conn.RollbackTrans();
  conn.BeginTrans(purpose);
}

void condition_transaction::commit() {
  form<replaceForm>().conn.CommitTrans();
  cond_saved_ = true;
}

// A store that is out of reach takes nothing back; the editor is shown in any case, and a failure
// told.
void condition_transaction::end() {
  auto& conn = form<replaceForm>().conn;
  std::exception_ptr failure;
  try {
    if (!cond_saved_ && conn.in_transaction()) conn.RollbackTrans();
  } catch (...) {
    failure = std::current_exception();
  }
  form<replace_create>().Init_ToolBar();
  form<replace_create>().init_tree();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace ta_vorlumine
