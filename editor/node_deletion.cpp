#include "editor/replace_create.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "rules/branch_deletion.h"
#include "rules/condition_rows.h"
#include "rules/outdated_view.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

void delete_row(const ADODB::Value& replace_no, const std::string& key) {
  shared().conn.Execute(
      sql("delete from replace_m where replace_no=<replace_no> and replace_m_no=<basNodeKey>",
          {replace_no, key}));
}

ADODB::Value column(const ADODB::Recordset& row, std::string_view name) {
  return row.Fields().Item(name).Value();
}

}  // namespace

void replace_create::del_set() {
  auto& state = shared();
  if (state.basNodeKey == "0") return Init_ToolBar();
  if (!platform::ask("削除してもよろしいですか")) return;
  const std::string key = state.basNodeKey;
  state.basRS = state.conn.Execute(
      sql("select * from replace_m where replace_m_no= <basNodeKey> and replace_no=<f_replace_no>",
          {key, state.f_replace_no}));
  if (state.basRS.eof()) throw vanished_row();
  const ADODB::Recordset row = state.basRS;
  const std::string use_type = column(row, "use_type").text();
  const platform::busy_pointer busy;
  if (use_type == "F") delete_field(row, key);
  if (use_type == "C") delete_condition(row, key);
  if (use_type == "R") delete_value(row, key);
  Init_ToolBar();
}

void replace_create::delete_field(const ADODB::Recordset& row, const std::string& key) {
  SSTree1.Nodes.Remove(key);
  delete_row(column(row, "replace_no"), key);
  DeleteChild(key);
}

void replace_create::delete_value(const ADODB::Recordset& row, const std::string& key) {
  SSTree1.Nodes.Remove(key);
  delete_row(column(row, "replace_no"), key);
}

// The last ordinary condition of a field takes the otherwise branch along, which alone would mean
// nothing.
void replace_create::delete_condition(const ADODB::Recordset& row, const std::string& key) {
  auto& state = shared();
  if (state.tmpNode.Text() == "以外") {
    return platform::message("条件あるときは以外条件が削除出来ません");
  }
  const auto otherwise = lone_otherwise(state.conn, state.f_replace_no, state.selected_key());
  if (otherwise) delete_otherwise(*otherwise);
  const ADODB::Value cond_no = column(row, "replace_cond_no");
  SSTree1.Nodes.Remove(key);
  if (!cond_no.is_null()) {
    state.conn.Execute(
        sql("delete from replace_cond where replace_no=<replace_no> "
            "and replace_cond_no=<replace_cond_no>",
            {column(row, "replace_no"), cond_no}));
  }
  delete_row(column(row, "replace_no"), key);
  DeleteChild(key);
}

void replace_create::delete_otherwise(row_key otherwise) {
  auto& state = shared();
  const std::string key = std::to_string(otherwise);
  delete_row(ADODB::Value(row_key{state.f_replace_no}), key);
  DeleteChild(key);
  // Another program may have added it since the tree was built.
  if (SSTree1.Nodes.Has(key)) SSTree1.Nodes.Remove(SSTree1.Nodes.Item(key).Position());
}

}  // namespace ta_vorlumine
