#include "conditions/address_add.h"

#include <cstdint>
#include <string>

#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/new_keys.h"
#include "rules/selected_node.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

void insert_field(std::int16_t key, const std::string& field_id) {
  auto& shared = form<replaceForm>();
  shared.conn.Execute(
      sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,field_id,replace_no) "
          "values(<new key>,<basNodeKey>,'F','<field_id>',<f_replace_no>)",
          {key, shared.basNodeKey, field_id, shared.f_replace_no}));
}

// The definition keeps one key for its top row: no other number will do if it is taken.
void insert_top_field(const std::string& field_id) {
  try {
    insert_field(form<replaceForm>().f_replace_m_no, field_id);
  } catch (const ADODB::Error& failure) {
    if (failure.kind() != ADODB::failure_kind::refused_by_key) throw;
    throw taken_place();
  }
}

void add_field(const std::string& field_id, std::int64_t last_number) {
  auto& shared = form<replaceForm>();
  require_free_place();
  if (shared.basNodeKey == "0") {
    insert_top_field(field_id);
  } else {
    insert_with_new_key(shared, "replace_m", last_number,
                        [&](std::int16_t key) { insert_field(key, field_id); });
  }
  shared.update_seqno("replace_m");
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
  window.on_unload = [] { form<replace_create>().Init_ToolBar(); };
  Command1.on_click = [this] { ok(); };
  Command2.on_click = [this] { window.unload(); };
}

void address_add::load() {
  Combo1.Clear();
  auto& rows = form<replaceForm>().basRS;
  rows = form<replaceForm>().conn.Execute("select field_id,field_name from field");
  for (; !rows.eof(); rows.MoveNext()) {
    Combo1.AddItem(rows.Fields().Item("field_name").Value().text());
  }
  rows.Close();
}

void address_add::ok() {
  auto& shared = form<replaceForm>();
  const std::string name = Combo1.text();
  if (name.empty()) return platform::message("アドレス項目を選択してください。");
  if (name.find('\'') != std::string::npos) {
    return platform::message("項目名に「'」が含まれているため、この項目は設定できません。");
  }
  const bool top = shared.basNodeKey == "0";
  const std::int64_t last_number = top ? 0 : shared.getfrom_seqno("replace_m");
  shared.basRS = shared.conn.Execute(
      sql("select field_id,attr from field where field_name='<Combo1 text>'", {name}));
  if (shared.basRS.eof()) {
    return platform::message("選択した項目はアドレス帳から削除されています。");
  }
  const ADODB::Fields field = shared.basRS.Fields();
  form<replace_create>().f_attr = field.Item("attr").Value().text();
  try {
    add_field(field.Item("field_id").Value().text(), last_number);
  } catch (const outdated_view& outdated) {
    platform::message(outdated.what());
  }
  form<replace_create>().init_tree();
  window.unload();
}

}  // namespace ta_vorlumine
