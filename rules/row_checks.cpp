#include "rules/row_checks.h"

#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

void require_title_row(ADODB::Connection& conn, row_key replace_no) {
  const ADODB::Recordset found = conn.Execute(
      sql("select replace_no from replace where replace_no=<replace_no>", {replace_no}));
  if (found.eof()) throw vanished_row();
}

void require_rule_row(ADODB::Connection& conn, row_key definition, row_key key) {
  require_title_row(conn, definition);
  if (key == 0) return;
  const ADODB::Recordset found =
      conn.Execute(sql("select replace_m_no from replace_m where replace_no=<definition> "
                       "and replace_m_no=<key>",
                       {definition, key}));
  if (found.eof()) throw vanished_row();
}

void require_empty_branch(ADODB::Connection& conn, row_key definition, row_key key) {
  require_rule_row(conn, definition, key);
  if (has_children(conn, definition, key)) throw occupied_branch();
}

bool has_children(ADODB::Connection& conn, row_key definition, row_key key) {
  return !conn.Execute(sql("select replace_m_no from replace_m where replace_no=<definition> "
                           "and p_replace_m_no=<key>",
                           {definition, key}))
              .eof();
}

}  // namespace ta_vorlumine
