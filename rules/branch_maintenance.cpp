#include "browser/replace_form.h"
#include "controls/tree/tree_look.h"
#include "editor/replace_create.h"
#include "rules/new_keys.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;
using platform::form;

// The row goes in before its node: only the store knows whether the number is free. A dialog's try
// that was taken back has left its node.
void replace_create::ins_yiwai() {
  auto& shared = form<replaceForm>();
  const std::string parent = shared.basNodeKey;
  const std::int64_t last_number = free_rule_key(shared) - 1;
  const std::string key = std::to_string(
      insert_with_new_key(shared, "replace_m", last_number, [&](std::int16_t number) {
        shared.conn.Execute(
            sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
                "replace_no) values(<new key>,<basNodeKey>,'C','1',<f_replace_no>)",
                {number, parent, shared.f_replace_no}));
      }));
  if (!SSTree1.Nodes.Has(key)) {
    shared.atNode = SSTree1.Nodes.AddChild(parent, key, "以外");
    shared.atNode.parent().Expanded(true);
    show_as_row(shared.atNode);
    shared.atNode.Image("cond");
  }
  shared.update_seqno("replace_m");
}

// From the leaves up, and the lines of a condition before its row.
void replace_create::DeleteChild(const std::string& P_ID) {
  auto& shared = form<replaceForm>();
  ADODB::Recordset children = shared.conn.Execute(
      sql("select * from replace_m where replace_no=<f_replace_no> and p_replace_m_no=<P_ID>",
          {shared.f_replace_no, P_ID}));
  for (; !children.eof(); children.MoveNext()) {
    const ADODB::Fields child = children.Fields();
    const ADODB::Value cond_no = child.Item("replace_cond_no").Value();
    const bool ordinary = child.Item("use_type").Value().text() == "C" &&
                          child.Item("replace_cond_type").Value().text() == "0";
    if (ordinary && !cond_no.is_null()) {
      shared.conn.Execute(
          sql("delete from replace_cond where replace_no=<f_replace_no> "
              "and replace_cond_no=<replace_cond_no>",
              {shared.f_replace_no, cond_no}));
    }
    DeleteChild(child.Item("replace_m_no").Value().text());
  }
  shared.conn.Execute(
      sql("Delete from replace_m where replace_no=<f_replace_no> and replace_m_no=<P_ID>",
          {shared.f_replace_no, P_ID}));
}

void replace_create::delete_from_cond(std::int32_t replace_no, std::int32_t p_replace_m_no) {
  auto& conn = form<replaceForm>().conn;
  ADODB::Recordset count =
      conn.Execute(sql("select count(*) from replace_m where replace_no=<replace_no> "
                       "and p_replace_m_no=<p_replace_m_no>",
                       {replace_no, p_replace_m_no}));
  if (!count.eof() && count.Fields().Item(0).Value().number() == 1) {
    conn.Execute(
        sql("delete from replace_m where replace_no=<replace_no> "
            "and p_replace_m_no=<p_replace_m_no>",
            {replace_no, p_replace_m_no}));
  }
  count.Close();
}

}  // namespace ta_vorlumine
