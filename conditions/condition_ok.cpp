#include "browser/replace_form.h"
#include "conditions/condition_dialog.h"
#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/condition_row.h"
#include "rules/selected_node.h"
#include "store/sql.h"

namespace ta_vorlumine {

using platform::form;

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
  auto& editor = form<replace_create>();
  const bool is_new = editor.f_cond_value == 0;
  require_selected_node();
  if (!rows_pass()) return false;
  if (is_new) {
    renew_condition_number();
    move_to_condition(editor.f_replace_cond_no);
  }
  form<replaceForm>().conn.Execute(
      ADODB::sql("delete from replace_cond where replace_no=<f_replace_no> "
                 "and replace_cond_no=<f_replace_cond_no>",
                 {form<replaceForm>().f_replace_no, editor.f_replace_cond_no}));
  if (!store_lines()) {
    if (!editor.cond_mode) {
      drop_rows();
      platform::message("入力に誤りがあります。");
      return false;
    }
    if (!editor.remove_emptied_condition()) return false;
  } else if (is_new) {
    const bool first = count_children() == 0;
    insert_condition_row();
    if (first) editor.ins_yiwai();
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

void condition_dialog::move_to_condition(std::int16_t cond_no) {
  for (int row = 1; row < fg.Rows(); ++row) fg.TextMatrix(row, 2, std::to_string(cond_no));
}

/// False if no row is complete.
bool condition_dialog::store_lines() {
  bool any = false;
  for (int row = 1; row < fg.Rows(); ++row) {
    const std::string statement = kind_.insert(cells(row));
    if (statement.empty()) continue;
    form<replaceForm>().conn.Execute(statement);
    any = true;
  }
  return any;
}

void condition_dialog::drop_rows() {
  while (fg.Rows() > 1) fg.RemoveItem(fg.Rows() - 1);
}

}  // namespace ta_vorlumine
