#include "rules/condition_rows.h"

#include "rules/key_counters.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

void insert_condition_row(ADODB::Connection& conn, row_key definition, row_key field) {
  insert_rule_row(conn, definition, getfrom_seqno(conn, "replace_m"), [&](std::int16_t row) {
    const std::int16_t lines = checked_key(getfrom_seqno(conn, "replace_cond") + 1);
    conn.Execute(
        sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
            "replace_cond_no,replace_no) values(<M>,<basNodeKey>,'C','0',<C>,<f_replace_no>)",
            {row, field, lines, definition}));
  });
  update_seqno(conn, "replace_m");
  update_seqno(conn, "replace_cond");
}

row_key insert_otherwise_row(ADODB::Connection& conn, row_key definition, row_key field) {
  const row_key key =
      insert_rule_row(conn, definition, getfrom_seqno(conn, "replace_m"), [&](std::int16_t row) {
        conn.Execute(
            sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
                "replace_no) values(<new key>,<basNodeKey>,'C','1',<f_replace_no>)",
                {row, field, definition}));
      });
  update_seqno(conn, "replace_m");
  return key;
}

std::optional<row_key> lone_otherwise(ADODB::Connection& conn, row_key definition,
                                      row_key condition) {
  const ADODB::Recordset row =
      conn.Execute(sql("select p_replace_m_no from replace_m where replace_no=<definition> "
                       "and replace_m_no=<condition>",
                       {definition, condition}));
  if (row.eof()) return std::nullopt;
  ADODB::Recordset siblings = conn.Execute(sql(
      "select replace_m_no,use_type,replace_cond_type from replace_m "
      "where replace_no=<definition> and p_replace_m_no=<field> and not replace_m_no=<condition>",
      {definition, row.Fields().Item(0).Value(), condition}));
  if (siblings.RecordCount() != 1) return std::nullopt;
  const ADODB::Fields sibling = siblings.Fields();
  const bool is_otherwise = sibling.Item("use_type").Value().text() == "C" &&
                            sibling.Item("replace_cond_type").Value().text() == "1";
  if (!is_otherwise) return std::nullopt;
  return sibling.Item("replace_m_no").Value().number();
}

}  // namespace ta_vorlumine
