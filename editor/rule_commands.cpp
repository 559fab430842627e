#include <stdexcept>

#include "browser/replace_form.h"
#include "conditions/address_add.h"
#include "conditions/r_date_cond.h"
#include "conditions/r_number_cond.h"
#include "conditions/r_text_cond.h"
#include "conditions/r_yesno_cond.h"
#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/new_keys.h"
#include "rules/vanished_row.h"
#include "store/sql.h"
#include "values/set_value.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

ADODB::Recordset query(const std::string& statement) {
  return form<replaceForm>().conn.Execute(statement);
}

ADODB::Value column(const ADODB::Recordset& rows, std::string_view name) {
  return rows.Fields().Item(name).Value();
}

/// The number of a condition's lines, 0 for none. Copied rows hold 0 where others hold null.
std::int16_t line_number(const ADODB::Recordset& row) {
  const ADODB::Value number = column(row, "replace_cond_no");
  return number.is_null() ? std::int16_t{0} : static_cast<std::int16_t>(number.number());
}

}  // namespace

void replace_create::addr_set() {
  form<address_add>().window.show();
}

void replace_create::cond_val_set() {
  form<set_value>().window.show();
}

void replace_create::cond_set() {
  auto& shared = form<replaceForm>();
  if (shared.basNodeKey == "0") return;
  shared.basCopyRs = query(
      sql("select * from replace_m where replace_no=<f_replace_no> and replace_m_no=<basNodeKey>",
          {shared.f_replace_no, shared.basNodeKey}));
  if (shared.basCopyRs.eof()) throw vanished_row();
  const ADODB::Recordset row = shared.basCopyRs;
  const bool existing = column(row, "use_type").text() == "C";
  f_cond_value = existing ? 1 : 0;
  f_fieldname = existing ? shared.tmpNode.parent().Text() : shared.tmpNode.Text();
  std::int16_t first_cond_no = 0;
  if (existing) {
    f_replace_cond_no = line_number(row);
  } else {
    first_cond_no = lend_new();
  }
  if (!read_field_attr(existing)) return;
  if (f_attr == "B") lend_yesno_number(row, first_cond_no);
  shared.basCopyRs.Close();
  set_next_line_number();
  open_condition_dialog();
}

/// Gives the number of the field's first condition, 0 if it has none. The otherwise branch, which
/// has no lines, may come before it.
std::int16_t replace_create::lend_new() {
  auto& shared = form<replaceForm>();
  lend_condition_number();
  shared.basRS = query(
      sql("select * from replace_m where replace_no=<f_replace_no> and p_replace_m_no=<basNodeKey>",
          {shared.f_replace_no, shared.basNodeKey}));
  if (shared.basRS.eof()) return 0;
  std::int16_t first = 0;
  for (; !shared.basRS.eof() && first == 0; shared.basRS.MoveNext()) {
    first = line_number(shared.basRS);
  }
  const Node child = shared.tmpNode.Child();
  const bool lone = shared.basRS.RecordCount() == 1;
  if (lone && (child.is_empty() || child.Text() != "以外")) ins_yiwai();
  return first;
}

// A number left behind by a crash, or drawn by another program meanwhile, would mix this
// condition's lines with others.
void replace_create::lend_condition_number() {
  auto& shared = form<replaceForm>();
  for (std::int16_t before = 0;; before = f_replace_cond_no) {
    f_replace_cond_no = checked_key(shared.getfrom_seqno("replace_cond") + 1);
    // A table of counters without its row stays as it is, and so does the number.
    if (f_replace_cond_no == before) throw std::runtime_error("条件の番号を決められません。");
    const ADODB::Recordset lines =
        query(sql("select max(sno) from replace_cond where replace_cond_no=<f_replace_cond_no> "
                  "and replace_no=<f_replace_no>",
                  {f_replace_cond_no, shared.f_replace_no}));
    if (lines.eof() || lines.Fields().Item(0).Value().is_null()) return;
    shared.update_seqno("replace_cond");
  }
}

// The look-up takes the name as it is, so one with an apostrophe has no statement to go into.
bool replace_create::read_field_attr(bool existing) {
  if (f_fieldname.find('\'') != std::string::npos) {
    platform::message("項目名に「'」が含まれているため、条件を設定できません。");
    return false;
  }
  auto& rows = form<replaceForm>().basRS;
  rows = query(sql(existing ? "select field_id,attr from field where field_name='<f_fieldname>'"
                            : "select field_name,attr from field where field_name='<f_fieldname>'",
                   {f_fieldname}));
  if (rows.eof()) {
    platform::message("項目「" + f_fieldname + "」がアドレス帳にないため、条件を設定できません。");
    return false;
  }
  f_attr = column(rows, "attr").text();
  return true;
}

// A yes/no field has one condition, which is opened again.
void replace_create::lend_yesno_number(const ADODB::Recordset& row, std::int16_t first_cond_no) {
  if (line_number(row) > 0) {
    f_replace_cond_no = line_number(row);
  } else if (first_cond_no > 0) {
    f_replace_cond_no = first_cond_no;
  }
}

void replace_create::set_next_line_number() {
  auto& rows = form<replaceForm>().basRS;
  rows = query(sql("select max(sno) from replace_cond where replace_cond_no=<f_replace_cond_no>",
                   {f_replace_cond_no}));
  const bool none = rows.eof() || rows.Fields().Item(0).Value().is_null();
  sno_current = none ? std::int16_t{1} : checked_key(rows.Fields().Item(0).Value().number() + 1);
}

void replace_create::open_condition_dialog() {
  if (f_attr == "T" || f_attr == "M") return load_text_cond_grid();
  if (f_attr == "D") return load_date_cond_grid();
  if (f_attr == "N") return load_number_cond_grid();
  if (f_attr == "B") return show_yesno_cond();
}

}  // namespace ta_vorlumine
