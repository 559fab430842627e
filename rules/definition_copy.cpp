#include "rules/definition_copy.h"

#include <algorithm>
#include <utility>

#include "rules/key_counters.h"
#include "rules/outdated_view.h"
#include "rules/record_values.h"
#include "rules/with_undo.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

constexpr ADODB::words rule_row =
    "INSERT INTO REPLACE_M ( REPLACE_M_NO, P_REPLACE_M_NO, USE_TYPE, FIELD_ID, REPLACE_COND_TYPE, "
    "REPLACE_COND_NO, REPLACE_TITLE, REPLACE_TYPE, R_FIELD_ID, R_TEXT, R_TEXT_FILENAME, "
    "R_IMAGE_FILENAME, R_MMEDIA_FILENAME, REPLACE_NO ) VALUES ( %01 , %02 , '%03' , '%04' , %05 , "
    "%06 , '%07' , '%08' , '%09' , '%10' , '%11' , '%12' , '%13' , %14 )";

constexpr ADODB::words definition_row =
    "INSERT INTO REPLACE ( REPLACE_NO, P_REPLACE_NO, KIND, TITLE, COMMENT, REPLACE_M_NO ) VALUES ( "
    "%01 , %02 , '%03' , '%04' , '%05' , %06 )";

constexpr ADODB::words line_row =
    "INSERT INTO REPLACE_COND ( REPLACE_COND_NO, SNO, USE_TYPE, S_METHOD, S_VAL, D_F_METHOD, "
    "D_F_VAL, D_T_METHOD, D_T_VAL, N_F_METHOD, N_F_VAL, N_T_METHOD, N_T_VAL, B_VAL, REPLACE_NO ) "
    "VALUES ( %01 , %02 , '%03' , '%04' , '%05' , '%06' , '%07' , '%08' , '%09' , '%10' , %11 , "
    "'%12' , %13 , %14 , %15 )";

std::int64_t whole(const ADODB::Recordset& row, const std::string& column) {
  return row.Fields().Item(column).Value().number();
}

/// For a place that takes no empty text: null stays null.
ADODB::Value value_or_null(const ADODB::Recordset& row, const std::string& column) {
  std::string text = record_text(row, column);
  return text.empty() ? ADODB::Value() : ADODB::Value(std::move(text));
}

// Date columns of other lines hold this day, never nothing.
ADODB::Value date_bound(const ADODB::Recordset& line, const std::string& column) {
  if (record_text(line, "use_type") == "D") return value_or_null(line, column);
  return ADODB::Value(std::string("1900/01/01"));
}

/// One copy on its way: the numbers that it has drawn.
struct copy_numbers {
  row_key source;
  row_key definition;
  std::int64_t offset;
  std::int64_t next_condition;
};

/// Known before anything is written: the highest rule number and the last condition number.
void require_room(ADODB::Recordset rules, const copy_numbers& numbers) {
  std::int64_t next_condition = numbers.next_condition;
  for (; !rules.eof(); rules.MoveNext()) {
    static_cast<void>(checked_key(whole(rules, "REPLACE_M_NO") + numbers.offset));
    const std::string cond_no = record_text(rules, "REPLACE_COND_NO");
    if (!cond_no.empty() && cond_no != "0") static_cast<void>(checked_key(next_condition++));
  }
}

void copy_replace_row(ADODB::Connection& conn, row_key source, row_key key, row_key first_rule) {
  ADODB::Recordset row;
  row.Open(sql("SELECT * FROM REPLACE WHERE REPLACE_NO = %1", {source}), conn);
  if (row.eof()) throw vanished_row();
  conn.Execute(
      sql(definition_row, {key, value_or_null(row, "P_REPLACE_NO"), record_text(row, "KIND"),
                           record_text(row, "TITLE"), record_text(row, "COMMENT"), first_rule}));
  row.Close();
}

// Condition numbers of two definitions may coincide: only the source's own lines are carried.
void copy_cond_rows(ADODB::Connection& conn, row_key condition, const copy_numbers& numbers) {
  ADODB::Recordset line;
  line.Open(sql("SELECT * FROM REPLACE_COND WHERE REPLACE_COND_NO = %1", {condition}), conn);
  for (; !line.eof(); line.MoveNext()) {
    if (whole(line, "REPLACE_NO") != numbers.source) continue;
    conn.Execute(sql(
        line_row, {numbers.next_condition, GetRecordNum(line, "SNO"), record_text(line, "USE_TYPE"),
                   value_or_null(line, "S_METHOD"), record_text(line, "S_VAL"),
                   value_or_null(line, "D_F_METHOD"), date_bound(line, "D_F_VAL"),
                   value_or_null(line, "D_T_METHOD"), date_bound(line, "D_T_VAL"),
                   value_or_null(line, "N_F_METHOD"), GetRecordNum(line, "N_F_VAL"),
                   value_or_null(line, "N_T_METHOD"), GetRecordNum(line, "N_T_VAL"),
                   value_or_null(line, "B_VAL"), numbers.definition}));
  }
  line.Close();
}

/// Gives the new row's number. The lines go in before the row that points to them.
row_key copy_rule_row(ADODB::Connection& conn, const ADODB::Recordset& rule,
                      copy_numbers& numbers) {
  const row_key number = whole(rule, "REPLACE_M_NO") + numbers.offset;
  const row_key parent = whole(rule, "P_REPLACE_M_NO");
  std::string condition = record_text(rule, "REPLACE_COND_NO");
  if (condition.empty() || condition == "0") {
    condition = "0";
  } else {
    copy_cond_rows(conn, whole(rule, "REPLACE_COND_NO"), numbers);
    condition = std::to_string(numbers.next_condition++);
  }
  conn.Execute(sql(
      rule_row, {number, parent == 0 ? 0 : parent + numbers.offset, record_text(rule, "USE_TYPE"),
                 record_text(rule, "FIELD_ID"), GetRecordNum(rule, "REPLACE_COND_TYPE"), condition,
                 record_text(rule, "REPLACE_TITLE"), record_text(rule, "REPLACE_TYPE"),
                 record_text(rule, "R_FIELD_ID"), record_text(rule, "R_TEXT"),
                 record_text(rule, "R_TEXT_FILENAME"), record_text(rule, "R_IMAGE_FILENAME"),
                 record_text(rule, "R_MMEDIA_FILENAME"), numbers.definition}));
  return number;
}

// A counter never goes back: another program may have drawn numbers meanwhile.
void write_counters(ADODB::Connection& conn, const copy_numbers& numbers, row_key last_rule) {
  const auto write = [&](const ADODB::words& statement, const char* name, std::int64_t number) {
    conn.Execute(sql(statement, {std::max(number, getfrom_seqno(conn, name))}));
  };
  write("UPDATE SEQNO SET REPLACE = %1", "replace", numbers.definition);
  if (last_rule != 0) write("UPDATE SEQNO SET REPLACE_M = %1", "replace_m", last_rule);
  write("UPDATE SEQNO SET REPLACE_COND = %1", "replace_cond", numbers.next_condition);
}

}  // namespace

copied_definition copy_definition(ADODB::Connection& conn, row_key source) {
  const std::int64_t last_title = getfrom_seqno(conn, "replace");
  copy_numbers numbers{source, 0, 0, getfrom_seqno(conn, "replace_cond") + 1};
  const row_key first_rule = getfrom_seqno(conn, "replace_m") + 1;
  ADODB::Recordset rules;
  rules.Open(sql("SELECT * FROM REPLACE_M WHERE REPLACE_NO = %1 ORDER BY REPLACE_M_NO", {source}),
             conn);
  if (!rules.eof()) numbers.offset = first_rule - whole(rules, "REPLACE_M_NO");
  require_room(rules, numbers);
  numbers.definition = insert_title_row(
      conn, last_title, [&](std::int16_t key) { copy_replace_row(conn, source, key, first_rule); });
  with_undo(
      [&] {
        row_key last_rule = 0;
        for (; !rules.eof(); rules.MoveNext()) last_rule = copy_rule_row(conn, rules, numbers);
        write_counters(conn, numbers, last_rule);
      },
      [&] { discard_definition(conn, numbers.definition); });
  return {checked_key(numbers.definition), static_cast<std::int16_t>(first_rule)};
}

void discard_definition(ADODB::Connection& conn, row_key replace_no) {
  conn.Execute(sql("delete from replace_cond where replace_no=<replace_no>", {replace_no}));
  conn.Execute(sql("delete from replace_m where replace_no=<replace_no>", {replace_no}));
  conn.Execute(sql("Delete from replace where replace_no=<replace_no>", {replace_no}));
}

}  // namespace ta_vorlumine
