#include <algorithm>
#include <utility>

#include "conditions/condition_dialog.h"
#include "platform/messages.h"
#include "rules/branch_deletion.h"
#include "rules/condition_rows.h"
#include "rules/row_checks.h"
#include "rules/shared_state.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

/// The lines as texts, in an order that doesn't depend on the engine's.
std::vector<std::string> texts_of(ADODB::Recordset lines) {
  std::vector<std::string> texts;
  for (; !lines.eof(); lines.MoveNext()) {
    std::string& text = texts.emplace_back();
    for (std::size_t column = 0; column < lines.Fields().Count(); ++column) {
      const ADODB::Value cell = lines.Fields().Item(column).Value();
      text += cell.is_null() ? std::string(1, '\0') : cell.text();
      text += '\n';
    }
  }
  std::ranges::sort(texts);
  return texts;
}

}  // namespace

void condition_dialog::ok() {
  if (!fg.commit_edit() || !rows_pass()) return;
  obstacle found = obstacle::none;
  do {
    try {
      found = try_to_store();
    } catch (const vanished_row& gone) {
      platform::message(gone.what());
      return window.unload();
    }
  } while (found != obstacle::none && settle(found));
  if (found != obstacle::none) return;
  platform::message("設定完了！");
  window.unload();
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

condition_dialog::obstacle condition_dialog::try_to_store() {
  obstacle found = obstacle::none;
  transaction_.store([&] {
    found = store();
    return found == obstacle::none;
  });
  return found;
}

/// Whether the user wants to go on. Nothing is locked while he is asked.
bool condition_dialog::settle(obstacle found) {
  switch (found) {
    case obstacle::changed_lines:
      if (!platform::ask("この条件は他のプログラムによって変更されています。"
                         "上書きしてもよろしいですか")) {
        return false;
      }
      known_lines_ = lines_in_store();
      return true;
    case obstacle::branch_below:
      may_delete_branch_ = platform::ask("削除してもよろしいですか");
      return may_delete_branch_;
    default:
      drop_rows();
      platform::message("入力に誤りがあります。");
      return false;
  }
}

// All lines are written anew. The grid keeps its rows as they were typed until nothing can fail any
// more, so that a refused statement costs no typing.
condition_dialog::obstacle condition_dialog::store() {
  auto& state = shared();
  const bool is_new = state.f_cond_value == 0;
  require_rule_row(state.conn, state.f_replace_no, state.selected_key());
  const bool needs_row = is_new && !new_row_.stands_already();
  if (!is_new) {
    state.f_replace_cond_no =
        checked_key(condition_number(state.conn, state.f_replace_no, state.selected_key()));
    if (texts_of(lines_in_store()) != texts_of(known_lines_)) return obstacle::changed_lines;
  }
  if (!store_lines()) {
    if (is_new || !state.cond_mode) return obstacle::no_line;
    return remove_condition() ? obstacle::none : obstacle::branch_below;
  }
  if (needs_row) new_row_.insert(count_children());
  return obstacle::none;
}

/// Under the condition's number of now, which may differ from that of the opening, in place of all
/// lines that it has. False if no row is complete.
bool condition_dialog::store_lines() {
  auto& state = shared();
  std::vector<ADODB::statement> writes{
      ADODB::sql("delete from replace_cond where replace_no=<f_replace_no> "
                 "and replace_cond_no=<f_replace_cond_no>",
                 {state.f_replace_no, state.f_replace_cond_no})};
  for (int row = 1; row < fg.Rows(); ++row) {
    line_cells line = cells(row);
    line[2] = std::to_string(state.f_replace_cond_no);
    std::optional<ADODB::statement> statement = kind_.insert(line);
    if (!statement) continue;
    static_cast<void>(checked_key(std::stoll(line[3])));
    writes.push_back(std::move(*statement));
  }
  state.conn.ExecuteAll(writes);
  return writes.size() > 1;
}

/// The condition whose last line is gone goes as deleting its node would take it: with its branch,
/// and with the otherwise row if it was the field's last condition. False if a branch would go with
/// it that the user has not been asked about.
bool condition_dialog::remove_condition() {
  auto& state = shared();
  const row_key definition = state.f_replace_no;
  const row_key condition = state.selected_key();
  const auto otherwise = lone_otherwise(state.conn, definition, condition);
  const bool has_branch = has_children(state.conn, definition, condition) ||
                          (otherwise && has_children(state.conn, definition, *otherwise));
  if (has_branch && !may_delete_branch_) return false;
  if (otherwise) delete_branch(state.conn, definition, *otherwise);
  delete_branch(state.conn, definition, condition);
  return true;
}

void condition_dialog::drop_rows() {
  while (fg.Rows() > 1) fg.RemoveItem(fg.Rows() - 1);
}

}  // namespace ta_vorlumine
