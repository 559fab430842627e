#include "conditions/r_yesno_cond.h"

#include "platform/messages.h"
#include "rules/condition_rows.h"
#include "rules/record_values.h"
#include "rules/row_checks.h"
#include "rules/shared_state.h"
#include "rules/with_undo.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

constexpr auto nothing_chosen = "選択してください";

ADODB::Recordset stored_lines() {
  auto& state = shared();
  return state.conn.Execute(
      sql("select b_val from replace_cond where replace_cond_no=<f_replace_cond_no> "
          "and replace_no=<f_replace_no>",
          {state.f_replace_cond_no, state.f_replace_no}));
}

void insert_line() {
  auto& state = shared();
  state.conn.Execute(
      sql("insert into replace_cond(replace_no,replace_cond_no,sno,use_type) "
          "values(<f_replace_no>,<f_replace_cond_no>,<sno_current>,'B')",
          {state.f_replace_no, state.f_replace_cond_no, checked_key(state.sno_current)}));
}

/// The line's answer; null if the condition has no line or no answer.
ADODB::Value answer_of(const ADODB::Recordset& lines) {
  return lines.eof() ? ADODB::Value() : column(lines, "b_val");
}

}  // namespace

r_yesno_cond::r_yesno_cond()
    : Combo1(window, "Combo1"),
      Label1(window, "Label1", {}, &Combo1, platform::Label::lines::one),
      Command1(window, "Command1", "OK"),
      Command2(window, "Command2", "ｷｬﾝｾﾙ") {
  window.body =
      platform::column({platform::fields({platform::row({Label1, Combo1})}), platform::stretch(),
                        platform::row({platform::stretch(), Command1, Command2})});
  window.on_load = [this] { load(); };
  window.on_unload = [this] { transaction_.end(); };
  Command1.on_click = [this] { ok(); };
  Command2.on_click = [this] { window.unload(); };
}

void r_yesno_cond::load() {
  for (const char* entry : {nothing_chosen, "はい", "いいえ"}) Combo1.AddItem(entry);
  Combo1.select(nothing_chosen);
  new_row_.reset();
  transaction_.begin();
  // A form that fails to load is never unloaded.
  with_undo([this] { transaction_.run([this] { read_answer(); }); },
            [this] { transaction_.end(); });
}

void r_yesno_cond::read_answer() {
  const ADODB::Recordset lines = stored_lines();
  known_answer_ = answer_of(lines);
  if (!known_answer_.is_null()) Combo1.select(known_answer_.truth() ? "はい" : "いいえ");
  if (lines.eof() && shared().f_replace_cond_no > 0) insert_line();
}

void r_yesno_cond::ok() {
  const std::string choice = Combo1.text();
  if (choice == nothing_chosen) return platform::message("選択してください!");
  if (choice != "はい" && choice != "いいえ") platform::message("Exception Error!");
  was_told_ = false;
  try {
    while (!transaction_.store([&] { return store_answer(choice == "はい"); })) {
      if (!may_overwrite()) return;
    }
  } catch (const vanished_row& gone) {
    platform::message(gone.what());
  }
  window.unload();
}

/// Asked while nothing is locked.
bool r_yesno_cond::may_overwrite() {
  if (!platform::ask("この条件は他のプログラムによって変更されています。"
                     "上書きしてもよろしいですか")) {
    return false;
  }
  known_answer_ = answer_of(stored_lines());
  return true;
}

/// False if another program has changed the answer since it was read. The message comes before the
/// row and the commit, and only once, however often the work has to begin anew.
bool r_yesno_cond::store_answer(bool answer) {
  auto& state = shared();
  require_rule_row(state.conn, state.f_replace_no, state.selected_key());
  const std::int64_t children = state.f_cond_value == 0 ? count_children() : 0;
  const bool is_own = find_number(children);
  const ADODB::Recordset lines = stored_lines();
  if (!is_own && !(answer_of(lines) == known_answer_)) return false;
  if (lines.eof()) insert_line();
  state.conn.Execute(
      sql("update replace_cond set b_val=<answer> where replace_no=<f_replace_no> "
          "and replace_cond_no=<f_replace_cond_no>",
          {answer ? "True" : "False", state.f_replace_no, state.f_replace_cond_no}));
  if (!was_told_) platform::message("設定完了！");
  was_told_ = true;
  // With its otherwise branch the field needs no more rows.
  if (state.f_cond_value == 0 && children <= 1 && !is_own) new_row_.insert(children);
  state.basRS.Close();
  return true;
}

/// Sets the number of the condition that OK writes to: of the selected condition, of the one that
/// the field has, or a new one. True if it is the row of an earlier OK, whose answer was lost.
bool r_yesno_cond::find_number(std::int64_t children) {
  auto& state = shared();
  const row_key definition = state.f_replace_no;
  const row_key selected = state.selected_key();
  if (state.f_cond_value == 1) {
    state.f_replace_cond_no = checked_key(condition_number(state.conn, definition, selected));
    return false;
  }
  if (new_row_.was_tried() || children <= 1) return new_row_.stands_already();
  const row_key first = first_condition_number(state.conn, definition, selected);
  if (first > 0) state.f_replace_cond_no = checked_key(first);
  return false;
}

}  // namespace ta_vorlumine
