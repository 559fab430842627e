#include "conditions/address_add.h"
#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/key_counters.h"
#include "rules/outdated_view.h"
#include "store/sql.h"
#include "values/set_value.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

ADODB::Value column(const ADODB::Recordset& rows, std::string_view name) {
  return rows.Fields().Item(name).Value();
}

/// The number of a condition's lines, 0 for none. Copied rows hold 0 where others hold null.
std::int16_t line_number(const ADODB::Recordset& row) {
  const ADODB::Value number = column(row, "replace_cond_no");
  return number.is_null() ? std::int16_t{0} : static_cast<std::int16_t>(number.number());
}

/// The number of the first condition among the rows, 0 if there is none. The otherwise branch,
/// which has no lines, may come before it.
std::int16_t first_line_number(ADODB::Recordset rows) {
  for (; !rows.eof(); rows.MoveNext()) {
    if (const std::int16_t number = line_number(rows); number != 0) return number;
  }
  return 0;
}

}  // namespace

void replace_create::addr_set() {
  auto& picker = form<address_add>();
  picker.window.show();
  if (picker.changed_tree) init_tree();
  Init_ToolBar();
}

void replace_create::cond_val_set() {
  form<set_value>().window.show();
  refresh();
}

void replace_create::cond_set() {
  auto& state = shared();
  if (state.basNodeKey == "0") return;
  state.basCopyRs = state.conn.Execute(
      sql("select * from replace_m where replace_no=<f_replace_no> and replace_m_no=<basNodeKey>",
          {state.f_replace_no, state.basNodeKey}));
  if (state.basCopyRs.eof()) throw vanished_row();
  const ADODB::Recordset row = state.basCopyRs;
  f_cond_value = column(row, "use_type").text() == "C" ? 1 : 0;
  if (f_cond_value == 1) {
    f_replace_cond_no = line_number(row);
    f_fieldname = state.tmpNode.parent().Text();
  } else {
    f_replace_cond_no = free_condition_number(state.conn, state.f_replace_no);
    f_fieldname = state.tmpNode.Text();
    read_children();
    mend_lone_condition();
  }
  const std::int16_t first = f_cond_value == 1 ? std::int16_t{0} : first_line_number(state.basRS);
  if (!read_field_attr()) return;
  if (f_attr == "B") reuse_yesno_number(line_number(row), first);
  state.basCopyRs.Close();
  set_next_line_number();
  open_condition_dialog();
}

// The children of the selected field.
void replace_create::read_children() {
  auto& state = shared();
  state.basRS = state.conn.Execute(
      sql("select * from replace_m where replace_no=<f_replace_no> and p_replace_m_no=<basNodeKey>",
          {state.f_replace_no, state.basNodeKey}));
}

// A field with one ordinary condition and nothing beside it gets the otherwise branch that it
// lacks.
void replace_create::mend_lone_condition() {
  const Node child = shared().tmpNode.Child();
  const bool lone = shared().basRS.RecordCount() == 1;
  if (lone && (child.is_empty() || child.Text() != "以外")) ins_yiwai();
}

// The look-up takes the name as it is, so one with an apostrophe has no statement to go into.
bool replace_create::read_field_attr() {
  if (f_fieldname.find('\'') != std::string::npos) {
    platform::message("項目名に「'」が含まれているため、条件を設定できません。");
    return false;
  }
  auto& rows = shared().basRS;
  constexpr ADODB::words id_and_attr =
      "select field_id,attr from field where field_name='<f_fieldname>'";
  constexpr ADODB::words name_and_attr =
      "select field_name,attr from field where field_name='<f_fieldname>'";
  rows = shared().conn.Execute(sql(f_cond_value == 1 ? id_and_attr : name_and_attr, {f_fieldname}));
  if (rows.eof()) {
    platform::message("項目「" + f_fieldname + "」がアドレス帳にないため、条件を設定できません。");
    return false;
  }
  f_attr = column(rows, "attr").text();
  return true;
}

// A yes/no field has one condition, which is opened again: the selected one, or the field's first.
void replace_create::reuse_yesno_number(std::int16_t selected, std::int16_t first) {
  if (selected > 0) {
    f_replace_cond_no = selected;
  } else if (first > 0) {
    f_replace_cond_no = first;
  }
}

void replace_create::set_next_line_number() {
  auto& rows = shared().basRS;
  rows = shared().conn.Execute(
      sql("select max(sno) from replace_cond where replace_cond_no=<f_replace_cond_no>",
          {f_replace_cond_no}));
  const bool none = rows.eof() || rows.Fields().Item(0).Value().is_null();
  sno_current = none ? std::int16_t{1} : checked_key(rows.Fields().Item(0).Value().number() + 1);
}

void replace_create::open_condition_dialog() {
  if (f_attr == "T" || f_attr == "M") {
    load_text_cond_grid();
  } else if (f_attr == "D") {
    load_date_cond_grid();
  } else if (f_attr == "N") {
    load_number_cond_grid();
  } else if (f_attr == "B") {
    show_yesno_cond();
  } else {
    return;
  }
  refresh();
}

}  // namespace ta_vorlumine
