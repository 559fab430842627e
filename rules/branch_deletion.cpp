#include "rules/branch_deletion.h"

#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

void delete_branch(ADODB::Connection& conn, row_key definition, row_key key) {
  ADODB::Recordset children = conn.Execute(
      sql("select * from replace_m where replace_no=<f_replace_no> and p_replace_m_no=<P_ID>",
          {definition, key}));
  for (; !children.eof(); children.MoveNext()) {
    const ADODB::Fields child = children.Fields();
    const ADODB::Value cond_no = child.Item("replace_cond_no").Value();
    const bool ordinary = child.Item("use_type").Value().text() == "C" &&
                          child.Item("replace_cond_type").Value().text() == "0";
    if (ordinary && !cond_no.is_null()) {
      conn.Execute(
          sql("delete from replace_cond where replace_no=<f_replace_no> "
              "and replace_cond_no=<replace_cond_no>",
              {definition, cond_no}));
    }
    delete_branch(conn, definition, child.Item("replace_m_no").Value().number());
  }
  conn.Execute(sql("Delete from replace_m where replace_no=<f_replace_no> and replace_m_no=<P_ID>",
                   {definition, key}));
}

void delete_rules(ADODB::Connection& conn, row_key definition) {
  conn.Execute(sql("delete from replace_m where replace_no=<replace_no>", {definition}));
  conn.Execute(sql("delete from replace_cond where replace_no=<replace_no>", {definition}));
}

void delete_only_child(ADODB::Connection& conn, row_key definition, row_key key) {
  const ADODB::Recordset count =
      conn.Execute(sql("select count(*) from replace_m where replace_no=<replace_no> "
                       "and p_replace_m_no=<p_replace_m_no>",
                       {definition, key}));
  if (count.eof() || count.Fields().Item(0).Value().number() != 1) return;
  conn.Execute(
      sql("delete from replace_m where replace_no=<replace_no> "
          "and p_replace_m_no=<p_replace_m_no>",
          {definition, key}));
}

void delete_folder_contents(ADODB::Connection& conn, row_key replace_no) {
  ADODB::Recordset children = conn.Execute(
      sql("select replace_no,P_replace_NO,replace_m_no from replace where p_replace_no= <P_ID>",
          {replace_no}));
  for (; !children.eof(); children.MoveNext()) {
    const row_key child = children.Fields().Item("replace_no").Value().number();
    delete_rules(conn, child);
    delete_folder_contents(conn, child);
  }
  conn.Execute(sql("Delete from replace where replace_no=<P_ID>", {replace_no}));
}

}  // namespace ta_vorlumine
