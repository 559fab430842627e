#include "rules/branch_deletion.h"

#include <vector>

#include "rules/subtree.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

namespace {

void add_rules(std::vector<ADODB::statement>& deletions, row_key definition) {
  deletions.push_back(sql("delete from replace_m where replace_no=<replace_no>", {definition}));
  deletions.push_back(sql("delete from replace_cond where replace_no=<replace_no>", {definition}));
}

/// The lines of an ordinary condition; other rows have none.
void add_lines(std::vector<ADODB::statement>& deletions, row_key definition,
               const ADODB::Fields& row) {
  const ADODB::Value cond_no = row.Item("replace_cond_no").Value();
  const bool ordinary = row.Item("use_type").Value().text() == "C" &&
                        row.Item("replace_cond_type").Value().text() == "0";
  if (!ordinary || cond_no.is_null()) return;
  deletions.push_back(
      sql("delete from replace_cond where replace_no=<f_replace_no> "
          "and replace_cond_no=<replace_cond_no>",
          {definition, cond_no}));
}

}  // namespace

void delete_branch(ADODB::Connection& conn, row_key definition, row_key key) {
  constexpr ADODB::words children =
      "select * from replace_m where replace_no=<f_replace_no> and p_replace_m_no=<P_ID>";
  constexpr ADODB::words deletion =
      "Delete from replace_m where replace_no=<f_replace_no> and replace_m_no=<P_ID>";
  subtree branch(conn, key, "replace_m_no", [&](row_key row) {
    return sql(children, {definition, row});
  });
  std::vector<ADODB::statement> deletions;
  branch.walk([&](const ADODB::Fields& row) { add_lines(deletions, definition, row); },
              [&](row_key row) {
                deletions.push_back(sql(deletion, {definition, row}));
              });
  conn.ExecuteAll(deletions);
}

void delete_rules(ADODB::Connection& conn, row_key definition) {
  std::vector<ADODB::statement> deletions;
  add_rules(deletions, definition);
  conn.ExecuteAll(deletions);
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
  constexpr ADODB::words children =
      "select replace_no,P_replace_NO,replace_m_no from replace where p_replace_no= <P_ID>";
  subtree contents(conn, replace_no, "replace_no",
                   [&](row_key row) { return sql(children, {row}); });
  std::vector<ADODB::statement> deletions;
  contents.walk(
      [&](const ADODB::Fields& row) {
        add_rules(deletions, row.Item("replace_no").Value().number());
      },
      [&](row_key row) {
        deletions.push_back(sql("Delete from replace where replace_no=<P_ID>", {row}));
      });
  conn.ExecuteAll(deletions);
}

}  // namespace ta_vorlumine
