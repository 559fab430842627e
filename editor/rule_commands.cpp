#include "conditions/address_add.h"
#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/condition_rows.h"
#include "rules/new_keys.h"
#include "rules/outdated_view.h"
#include "rules/record_values.h"
#include "store/sql.h"
#include "values/set_value.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

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
  f_fieldname = f_cond_value == 1 ? state.tmpNode.parent().Text() : state.tmpNode.Text();
  if (f_cond_value == 0) {
    static_cast<void>(getfrom_seqno(state.conn, "replace_cond"));
    read_children();
    mend_lone_condition();
  }
  if (!read_field_attr()) return refresh();
  const row_key number = number_for_dialog(row);
  // Without a number a condition has no lines; OK gives it one.
  f_replace_cond_no = number == 0 ? std::int16_t{0} : checked_key(number);
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

// Fields whose name holds an apostrophe are not supported: the field picker refuses them, too.
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

/// The number of the selected condition's lines, or a new number for a new condition. A yes/no
/// field has one condition, which is opened again.
row_key replace_create::number_for_dialog(const ADODB::Recordset& row) {
  auto& state = shared();
  if (f_cond_value == 1) return lines_of(row);
  const row_key first =
      f_attr == "B" ? first_condition_number(state.conn, state.f_replace_no, state.selected_key())
                    : 0;
  return first > 0 ? first : next_condition_number(state.conn, state.f_replace_no);
}

void replace_create::set_next_line_number() {
  auto& rows = shared().basRS;
  rows = shared().conn.Execute(
      sql("select max(sno) from replace_cond where replace_cond_no=<f_replace_cond_no>",
          {f_replace_cond_no}));
  const bool none = rows.eof() || rows.Fields().Item(0).Value().is_null();
  sno_current = none ? 1 : static_cast<std::int32_t>(rows.Fields().Item(0).Value().number()) + 1;
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
