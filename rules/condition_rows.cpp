#include "rules/condition_rows.h"

#include <array>

#include "rules/new_keys.h"
#include "rules/outdated_view.h"
#include "rules/record_values.h"
#include "store/key_counters.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

row_key insert_condition_row(ADODB::Connection& conn, row_key definition, row_key field,
                             row_key lines) {
  const row_key key = checked_key(next_rule_key(conn, definition));
  conn.ExecuteAll(std::array{
      sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
          "replace_cond_no,replace_no) values(<M>,<basNodeKey>,'C','0',<C>,<f_replace_no>)",
          {key, field, checked_key(lines), definition}),
      ADODB::advance_of("replace_m"), ADODB::advance_of("replace_cond")});
  return key;
}

row_key insert_otherwise_row(ADODB::Connection& conn, row_key definition, row_key field) {
  const row_key key = checked_key(next_rule_key(conn, definition));
  conn.ExecuteAll(
      std::array{sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
                     "replace_no) values(<new key>,<basNodeKey>,'C','1',<f_replace_no>)",
                     {key, field, definition}),
                 ADODB::advance_of("replace_m")});
  return key;
}

row_key lines_of(const ADODB::Recordset& row) {
  const ADODB::Value number = column(row, "replace_cond_no");
  return number.is_null() ? 0 : number.number();
}

row_key condition_number(ADODB::Connection& conn, row_key definition, row_key key) {
  const ADODB::Recordset row =
      conn.Execute(sql("select replace_cond_no from replace_m where replace_no=<definition> "
                       "and replace_m_no=<key>",
                       {definition, key}));
  if (row.eof()) throw vanished_row();
  if (lines_of(row) != 0) return lines_of(row);
  const row_key number = checked_key(next_condition_number(conn, definition));
  conn.Execute(
      sql("update replace_m set replace_cond_no=<number> where replace_no=<definition> "
          "and replace_m_no=<key>",
          {number, definition, key}));
  update_seqno(conn, "replace_cond");
  return number;
}

row_key first_condition_number(ADODB::Connection& conn, row_key definition, row_key field) {
  const ADODB::Value first =
      conn.Execute(sql("select min(replace_cond_no) from replace_m where replace_no=<definition> "
                       "and p_replace_m_no=<field> and replace_cond_no> 0",
                       {definition, field}))
          .Fields()
          .Item(0)
          .Value();
  return first.is_null() ? 0 : first.number();
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
