#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "rules/selected_node.h"
#include "rules/vanished_row.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

void delete_row(const std::string& replace_no, const std::string& key) {
  form<replaceForm>().conn.Execute(
      sql("delete from replace_m where replace_no=<replace_no> and replace_m_no=<basNodeKey>",
          {replace_no, key}));
}

}  // namespace

void replace_create::del_set() {
  auto& shared = form<replaceForm>();
  if (shared.basNodeKey == "0") return Init_ToolBar();
  if (!platform::ask("削除してもよろしいですか")) return;
  const std::string key = shared.basNodeKey;
  shared.basRS = shared.conn.Execute(
      sql("select * from replace_m where replace_m_no= <basNodeKey> and replace_no=<f_replace_no>",
          {key, shared.f_replace_no}));
  if (shared.basRS.eof()) throw vanished_row();
  const ADODB::Recordset row = shared.basRS;
  const std::string use_type = row.Fields().Item("use_type").Value().text();
  const platform::busy_pointer busy;
  if (use_type == "F") delete_field(row, key);
  if (use_type == "C") delete_condition(row, key);
  if (use_type == "R") delete_value(row, key);
  Init_ToolBar();
}

void replace_create::delete_field(const ADODB::Recordset& row, const std::string& key) {
  SSTree1.Nodes.Remove(key);
  delete_row(row.Fields().Item("replace_no").Value().text(), key);
  DeleteChild(key);
}

void replace_create::delete_value(const ADODB::Recordset& row, const std::string& key) {
  SSTree1.Nodes.Remove(key);
  delete_row(row.Fields().Item("replace_no").Value().text(), key);
}

// The last ordinary condition of a field takes the otherwise branch along, which alone would mean
// nothing.
void replace_create::delete_condition(const ADODB::Recordset& row, const std::string& key) {
  const Node node = form<replaceForm>().tmpNode;
  if (node.Text() == "以外") {
    return platform::message("条件あるときは以外条件が削除出来ません");
  }
  const Node otherwise = lone_otherwise(node);
  if (!otherwise.is_empty()) delete_otherwise(otherwise);
  const std::string replace_no = row.Fields().Item("replace_no").Value().text();
  const ADODB::Value cond_no = row.Fields().Item("replace_cond_no").Value();
  SSTree1.Nodes.Remove(key);
  if (!cond_no.is_null()) {
    form<replaceForm>().conn.Execute(
        sql("delete from replace_cond where replace_no=<replace_no> "
            "and replace_cond_no=<replace_cond_no>",
            {replace_no, cond_no}));
  }
  delete_row(replace_no, key);
  DeleteChild(key);
}

void replace_create::delete_otherwise(const Node& otherwise) {
  const std::string& key = otherwise.Key();
  delete_row(std::to_string(form<replaceForm>().f_replace_no), key);
  DeleteChild(key);
  SSTree1.Nodes.Remove(otherwise.Position());
}

}  // namespace ta_vorlumine
