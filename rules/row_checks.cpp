#include "rules/row_checks.h"

#include <array>

#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

namespace {

ADODB::statement rule_row(row_key definition, row_key key) {
  return sql(
      "select replace_m_no from replace_m where replace_no=<definition> and replace_m_no=<key>",
      {definition, key});
}

ADODB::statement children_of(row_key definition, row_key key) {
  return sql(
      "select replace_m_no from replace_m where replace_no=<definition> and p_replace_m_no=<key>",
      {definition, key});
}

/// The root of a rule tree has no row of its own.
void require_rows(const ADODB::Recordset& title, const ADODB::Recordset& rule, row_key key) {
  if (title.eof() || (key != 0 && rule.eof())) throw vanished_row();
}

}  // namespace

ADODB::statement title_row(row_key replace_no) {
  return sql("select replace_no from replace where replace_no=<replace_no>", {replace_no});
}

void require_title_row(ADODB::Connection& conn, row_key replace_no) {
  if (conn.Execute(title_row(replace_no)).eof()) throw vanished_row();
}

void require_rule_row(ADODB::Connection& conn, row_key definition, row_key key) {
  const auto found = conn.ExecuteAll(std::array{title_row(definition), rule_row(definition, key)});
  require_rows(found[0], found[1], key);
}

void require_empty_branch(ADODB::Connection& conn, row_key definition, row_key key) {
  const auto found = conn.ExecuteAll(
      std::array{title_row(definition), rule_row(definition, key), children_of(definition, key)});
  require_rows(found[0], found[1], key);
  if (!found[2].eof()) throw occupied_branch();
}

bool has_children(ADODB::Connection& conn, row_key definition, row_key key) {
  return !conn.Execute(children_of(definition, key)).eof();
}

}  // namespace ta_vorlumine
