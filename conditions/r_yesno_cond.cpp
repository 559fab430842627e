#include "conditions/r_yesno_cond.h"

#include "conditions/new_condition.h"
#include "platform/messages.h"
#include "rules/row_checks.h"
#include "rules/shared_state.h"
#include "rules/with_undo.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

constexpr auto nothing_chosen = "選択してください";

/// The line's answer; makes the line if the condition has none.
ADODB::Value stored_answer() {
  auto& state = shared();
  ADODB::Recordset line = state.conn.Execute(
      sql("select b_val from replace_cond where replace_cond_no=<f_replace_cond_no> "
          "and replace_no=<f_replace_no>",
          {state.f_replace_cond_no, state.f_replace_no}));
  if (!line.eof()) return line.Fields().Item("b_val").Value();
  state.conn.Execute(
      sql("insert into replace_cond(replace_no,replace_cond_no,sno,use_type) "
          "values(<f_replace_no>,<f_replace_cond_no>,<sno_current>,'B')",
          {state.f_replace_no, state.f_replace_cond_no, state.sno_current}));
  return {};
}

}  // namespace

r_yesno_cond::r_yesno_cond()
    : Combo1(window, "Combo1"),
      Label1(window, "Label1", {}, &Combo1),
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
  transaction_.begin();
  // A form that fails to load is never unloaded.
  with_undo([this] { transaction_.run([this] { read_answer(); }); },
            [this] { transaction_.end(); });
}

void r_yesno_cond::read_answer() {
  const ADODB::Value answer = stored_answer();
  if (!answer.is_null()) Combo1.select(answer.truth() ? "はい" : "いいえ");
}

void r_yesno_cond::ok() {
  const std::string choice = Combo1.text();
  if (choice == nothing_chosen) return platform::message("選択してください!");
  if (choice != "はい" && choice != "いいえ") platform::message("Exception Error!");
  bool was_told = false;
  try {
    transaction_.run([&] {
      store_answer(choice == "はい");
      if (!was_told) platform::message("設定完了！");
      was_told = true;
      make_row();
      transaction_.commit();
    });
  } catch (const vanished_row& gone) {
    platform::message(gone.what());
  }
  window.unload();
}

// A transaction that had to begin anew has lost the line of the opening: it is made again, and
// under a new number if another program has taken the one of then.
void r_yesno_cond::store_answer(bool answer) {
  auto& state = shared();
  require_rule_row(state.conn, state.f_replace_no, state.selected_key());
  if (state.f_cond_value == 0 && count_children() <= 1) renew_condition_number();
  static_cast<void>(stored_answer());
  state.conn.Execute(
      sql("update replace_cond set b_val=<answer> where replace_no=<f_replace_no> "
          "and replace_cond_no=<f_replace_cond_no>",
          {answer ? "True" : "False", state.f_replace_no, state.f_replace_cond_no}));
}

// A yes/no field has one condition: with its otherwise branch it needs no more rows.
void r_yesno_cond::make_row() {
  auto& state = shared();
  if (state.f_cond_value != 0) return;
  const std::int64_t children = count_children();
  if (children <= 1) insert_new_condition(children);
  state.basRS.Close();
}

}  // namespace ta_vorlumine
