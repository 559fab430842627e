#include "rules/transaction.h"

#include <array>

#include "rules/row_checks.h"
#include "rules/with_undo.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

constexpr int most_tries = 20;

void run_once(ADODB::Connection& conn, const std::function<void()>& work) {
  conn.BeginTrans(ADODB::purpose::writing);
  with_undo(
      [&] {
        work();
        conn.CommitTrans();
      },
      [&] { conn.RollbackTrans(); });
}

}  // namespace

void in_transaction(ADODB::Connection& conn, const std::function<void()>& work) {
  for (int tries = 1;; ++tries) {
    try {
      return run_once(conn, work);
    } catch (const ADODB::Error& failure) {
      if (!came_in_between(failure) || tries == most_tries) throw;
    }
  }
}

bool came_in_between(const ADODB::Error& failure) {
  return failure.kind() == ADODB::failure_kind::stale ||
         failure.kind() == ADODB::failure_kind::refused_by_key;
}

// An update that changes nothing locks the row on every engine, for as long as the transaction.
void hold_title_row(ADODB::Connection& conn, row_key replace_no) {
  if (replace_no == 0) return;
  const auto found = conn.ExecuteAll(std::array{
      ADODB::sql("update replace set kind=kind where replace_no=<replace_no>", {replace_no}),
      title_row(replace_no)});
  if (found[1].eof()) throw vanished_row();
}

void hold_moves(ADODB::Connection& conn) {
  conn.Execute("update seqno set replace=replace");
}

}  // namespace ta_vorlumine
