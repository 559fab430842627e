#include "conditions/address_add.h"

#include <cstdint>
#include <string>

#include "platform/messages.h"
#include "rules/field_list.h"
#include "rules/key_counters.h"
#include "rules/row_checks.h"
#include "rules/shared_state.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

void insert_field(std::int16_t key, const std::string& field_id) {
  auto& state = shared();
  state.conn.Execute(
      sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,field_id,replace_no) "
          "values(<new key>,<basNodeKey>,'F','<field_id>',<f_replace_no>)",
          {key, state.basNodeKey, field_id, state.f_replace_no}));
}

// The definition keeps one key for its top row: no other number will do if it is taken.
void insert_top_field(const std::string& field_id) {
  try {
    insert_field(shared().f_replace_m_no, field_id);
  } catch (const ADODB::Error& failure) {
    if (failure.kind() != ADODB::failure_kind::refused_by_key) throw;
    throw occupied_branch();
  }
}

void add_field(const std::string& field_id, std::int64_t last_number) {
  auto& state = shared();
  require_empty_branch(state.conn, state.f_replace_no, state.selected_key());
  if (state.basNodeKey == "0") {
    insert_top_field(field_id);
  } else {
    insert_rule_row(state.conn, state.f_replace_no, last_number,
                    [&](std::int16_t key) { insert_field(key, field_id); });
  }
  update_seqno(state.conn, "replace_m");
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
  const bool top = state.basNodeKey == "0";
  const std::int64_t last_number = top ? 0 : getfrom_seqno(state.conn, "replace_m");
  state.basRS = state.conn.Execute(
      sql("select field_id,attr from field where field_name='<Combo1 text>'", {name}));
  if (state.basRS.eof()) {
    return platform::message("選択した項目はアドレス帳から削除されています。");
  }
  const ADODB::Fields field = state.basRS.Fields();
  state.f_attr = field.Item("attr").Value().text();
  try {
    add_field(field.Item("field_id").Value().text(), last_number);
  } catch (const outdated_view& outdated) {
    platform::message(outdated.what());
  }
  changed_tree = true;
  window.unload();
}

}  // namespace ta_vorlumine
