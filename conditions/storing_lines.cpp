#include "conditions/condition_dialog.h"
#include "conditions/new_condition.h"
#include "platform/messages.h"
#include "rules/branch_deletion.h"
#include "rules/condition_rows.h"
#include "rules/row_checks.h"
#include "rules/shared_state.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

/// Deletes the condition whose last line is gone, as deleting its node would: with its branch, and
/// with the otherwise row if it was the field's last condition. Asks first if branches would go
/// with it; false if the user keeps them. A new condition has no row yet.
bool remove_emptied_condition() {
  auto& state = shared();
  if (state.f_cond_value == 0) return true;
  const row_key definition = state.f_replace_no;
  const row_key condition = state.selected_key();
  const auto otherwise = lone_otherwise(state.conn, definition, condition);
  const bool has_branch = has_children(state.conn, definition, condition) ||
                          (otherwise && has_children(state.conn, definition, *otherwise));
  if (has_branch && !platform::ask("削除してもよろしいですか")) return false;
  if (otherwise) delete_branch(state.conn, definition, *otherwise);
  delete_branch(state.conn, definition, condition);
  return true;
}

}  // namespace

void condition_dialog::ok() {
  if (!fg.commit_edit()) return;
  bool stored = false;
  try {
    transaction_.run([&] { stored = store(); });
  } catch (const vanished_row& gone) {
    platform::message(gone.what());
    return window.unload();
  }
  if (!stored) return;
  platform::message("設定完了！");
  window.unload();
}

// All lines are written anew. The grid keeps its rows as they were typed until nothing can fail any
// more, so that a refused statement costs no typing.
bool condition_dialog::store() {
  auto& state = shared();
  const bool is_new = state.f_cond_value == 0;
  require_rule_row(state.conn, state.f_replace_no, state.selected_key());
  if (!rows_pass()) return false;
  if (is_new) renew_condition_number();
  state.conn.Execute(
      ADODB::sql("delete from replace_cond where replace_no=<f_replace_no> "
                 "and replace_cond_no=<f_replace_cond_no>",
                 {state.f_replace_no, state.f_replace_cond_no}));
  if (!store_lines()) {
    if (!state.cond_mode) {
      drop_rows();
      platform::message("入力に誤りがあります。");
      return false;
    }
    if (!remove_emptied_condition()) return false;
  } else if (is_new) {
    insert_new_condition(count_children());
  }
  transaction_.commit();
  return true;
}

bool condition_dialog::rows_pass() {
  if (!kind_.test) return true;
  for (int row = 1; row < fg.Rows(); ++row) {
    if (kind_.test(cells(row), row)) continue;
    fg.Row(row);
    fg.set_focus();
    return false;
  }
  return true;
}

/// Under the condition's number of now, which may differ from that of the opening. False if no row
/// is complete.
bool condition_dialog::store_lines() {
  bool any = false;
  for (int row = 1; row < fg.Rows(); ++row) {
    line_cells line = cells(row);
    line[2] = std::to_string(shared().f_replace_cond_no);
    const std::optional<ADODB::statement> statement = kind_.insert(line);
    if (!statement) continue;
    shared().conn.Execute(*statement);
    any = true;
  }
  return any;
}

void condition_dialog::drop_rows() {
  while (fg.Rows() > 1) fg.RemoveItem(fg.Rows() - 1);
}

}  // namespace ta_vorlumine
