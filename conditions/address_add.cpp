#include "conditions/address_add.h"

#include <cstdint>
#include <string>

#include "platform/messages.h"
#include "rules/branch_deletion.h"
#include "rules/field_list.h"
#include "rules/new_keys.h"
#include "rules/row_checks.h"
#include "rules/shared_state.h"
#include "rules/transaction.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

/// Draws a key for the definition's top field, and keeps it in the definition's own row.
std::int16_t reserve_top_key() {
  auto& state = shared();
  const std::int16_t key = checked_key(next_rule_key(state.conn, state.f_replace_no));
  state.conn.Execute(sql("update replace set replace_m_no=<key> where replace_no=<f_replace_no>",
                         {key, state.f_replace_no}));
  return key;
}

bool is_taken(row_key key) {
  auto& state = shared();
  return !state.conn
              .Execute(sql("select replace_m_no from replace_m where replace_no=<f_replace_no> "
                           "and replace_m_no=<key>",
                           {state.f_replace_no, key}))
              .eof();
}

/// The key that the definition has reserved. Another program may have made the definition without
/// one, or may have left a row there that hangs below no other row, so that no tree shows it.
std::int16_t top_key() {
  const std::int16_t reserved = shared().f_replace_m_no;
  return reserved == 0 || is_taken(reserved) ? reserve_top_key() : reserved;
}

/// Gives the key of the new row.
std::int16_t insert_field(const std::string& field_id) {
  auto& state = shared();
  hold_title_row(state.conn, state.f_replace_no);
  require_empty_branch(state.conn, state.f_replace_no, state.selected_key());
  const bool is_top = state.basNodeKey == "0";
  const std::int16_t key =
      is_top ? top_key() : checked_key(next_rule_key(state.conn, state.f_replace_no));
  // Rows that were left behind under the key would hang under the new field.
  if (is_top) delete_branch(state.conn, state.f_replace_no, key);
  state.conn.Execute(
      sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,field_id,replace_no) "
          "values(<new key>,<basNodeKey>,'F','<field_id>',<f_replace_no>)",
          {key, state.basNodeKey, field_id, state.f_replace_no}));
  update_seqno(state.conn, "replace_m");
  return key;
}

void add_field(const std::string& field_id) {
  auto& state = shared();
  std::int16_t key = 0;
  in_transaction(state.conn, [&] { key = insert_field(field_id); });
  if (state.basNodeKey == "0") state.f_replace_m_no = key;
}

}  // namespace

address_add::address_add()
    : Label1(window, "Label1", "ﾃﾞｰﾀﾍﾞｰｽ項目", &Combo1),
      Combo1(window, "Combo1"),
      Command1(window, "Command1", "OK", platform::CommandButton::role::standard),
      Command2(window, "Command2", "ｷｬﾝｾﾙ") {
  window.body =
      platform::column({platform::fields({platform::row({Label1, Combo1})}), platform::stretch(),
                        platform::row({platform::stretch(), Command1, Command2})});
  window.on_load = [this] { load(); };
  Command1.on_click = [this] { ok(); };
  Command2.on_click = [this] { window.unload(); };
}

void address_add::load() {
  changed_tree = false;
  fill_field_list(Combo1);
}

void address_add::ok() {
  auto& state = shared();
  const std::string name = Combo1.text();
  if (name.empty()) return platform::message("アドレス項目を選択してください。");
  if (name.find('\'') != std::string::npos) {
    return platform::message("項目名に「'」が含まれているため、この項目は設定できません。");
  }
  if (state.basNodeKey != "0") static_cast<void>(getfrom_seqno(state.conn, "replace_m"));
  state.basRS = state.conn.Execute(
      sql("select field_id,attr from field where field_name='<Combo1 text>'", {name}));
  if (state.basRS.eof()) {
    return platform::message("選択した項目はアドレス帳から削除されています。");
  }
  const ADODB::Fields field = state.basRS.Fields();
  state.f_attr = field.Item("attr").Value().text();
  try {
    add_field(field.Item("field_id").Value().text());
  } catch (const outdated_view& outdated) {
    platform::message(outdated.what());
  }
  changed_tree = true;
  window.unload();
}

}  // namespace ta_vorlumine
