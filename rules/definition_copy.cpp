#include "rules/definition_copy.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "rules/branch_deletion.h"
#include "rules/new_keys.h"
#include "rules/record_values.h"
#include "rules/transaction.h"
#include "store/key_counters.h"
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

std::int64_t whole(const ADODB::Recordset& row, std::string_view name) {
  return column(row, name).number();
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

/// One copy on its way: the numbers that it gives.
struct copy_numbers {
  row_key source;
  row_key definition = 0;
  row_key next_condition = 0;
  std::map<row_key, row_key> rules{};  ///< the source's rule keys, and the copy's

  [[nodiscard]] row_key last_rule() const { return rules.rbegin()->second; }
  /// 0 for the root; nothing for a parent that has no row.
  [[nodiscard]] std::optional<row_key> parent_of(const ADODB::Recordset& rule) const {
    const row_key parent = whole(rule, "P_REPLACE_M_NO");
    if (parent == 0) return 0;
    const auto found = rules.find(parent);
    return found == rules.end() ? std::nullopt : std::optional(found->second);
  }
};

/// Moves all rule keys by one constant, so that their gaps remain. Only where that would pass the
/// highest key that there is, the gaps are closed.
void number_rules(ADODB::Recordset rows, row_key first, copy_numbers& numbers) {
  for (; !rows.eof(); rows.MoveNext()) numbers.rules[whole(rows, "REPLACE_M_NO")] = 0;
  if (numbers.rules.empty()) return;
  const row_key offset = first - numbers.rules.begin()->first;
  const bool has_room = numbers.rules.rbegin()->first + offset <= highest_key;
  row_key next = first;
  for (auto& [of_source, of_copy] : numbers.rules) {
    of_copy = checked_key(has_room ? of_source + offset : next++);
  }
}

/// The key that a definition reserves for its top field is that of the top field that it has.
row_key reserved_key(ADODB::Recordset rows, row_key first, const copy_numbers& numbers) {
  for (; !rows.eof(); rows.MoveNext()) {
    const bool is_top_field = numbers.parent_of(rows) == 0 && record_text(rows, "USE_TYPE") == "F";
    if (is_top_field) return numbers.rules.at(whole(rows, "REPLACE_M_NO"));
  }
  return checked_key(first);
}

using statements = std::vector<ADODB::statement>;

bool has_lines(const ADODB::Recordset& rule) {
  const std::string condition = record_text(rule, "REPLACE_COND_NO");
  return !condition.empty() && condition != "0";
}

/// The source's own row, and the lines of each condition that is carried.
std::vector<ADODB::Recordset> source_rows(ADODB::Connection& conn, ADODB::Recordset rules,
                                          const copy_numbers& numbers) {
  statements look_ups{sql("SELECT * FROM REPLACE WHERE REPLACE_NO = %1", {numbers.source})};
  for (; !rules.eof(); rules.MoveNext()) {
    if (!has_lines(rules) || !numbers.parent_of(rules)) continue;
    look_ups.push_back(sql("SELECT * FROM REPLACE_COND WHERE REPLACE_COND_NO = %1",
                           {whole(rules, "REPLACE_COND_NO")}));
  }
  return conn.ExecuteAll(look_ups);
}

void add_replace_row(statements& writes, const ADODB::Recordset& row, const copy_numbers& numbers,
                     row_key reserved) {
  writes.push_back(sql(definition_row, {numbers.definition, value_or_null(row, "P_REPLACE_NO"),
                                        record_text(row, "KIND"), record_text(row, "TITLE"),
                                        record_text(row, "COMMENT"), reserved}));
}

// Condition numbers of two definitions may coincide: only the source's own lines are carried.
void add_cond_rows(statements& writes, ADODB::Recordset line, const copy_numbers& numbers) {
  for (; !line.eof(); line.MoveNext()) {
    if (whole(line, "REPLACE_NO") != numbers.source) continue;
    writes.push_back(
        sql(line_row,
            {checked_key(numbers.next_condition), GetRecordNum(line, "SNO"),
             record_text(line, "USE_TYPE"), value_or_null(line, "S_METHOD"),
             record_text(line, "S_VAL"), value_or_null(line, "D_F_METHOD"),
             date_bound(line, "D_F_VAL"), value_or_null(line, "D_T_METHOD"),
             date_bound(line, "D_T_VAL"), value_or_null(line, "N_F_METHOD"),
             GetRecordNum(line, "N_F_VAL"), value_or_null(line, "N_T_METHOD"),
             GetRecordNum(line, "N_T_VAL"), value_or_null(line, "B_VAL"), numbers.definition}));
  }
}

void add_rule_row(statements& writes, const ADODB::Recordset& rule, const copy_numbers& numbers,
                  row_key parent, row_key condition) {
  writes.push_back(
      sql(rule_row,
          {numbers.rules.at(whole(rule, "REPLACE_M_NO")), parent, record_text(rule, "USE_TYPE"),
           record_text(rule, "FIELD_ID"), GetRecordNum(rule, "REPLACE_COND_TYPE"), condition,
           record_text(rule, "REPLACE_TITLE"), record_text(rule, "REPLACE_TYPE"),
           record_text(rule, "R_FIELD_ID"), record_text(rule, "R_TEXT"),
           record_text(rule, "R_TEXT_FILENAME"), record_text(rule, "R_IMAGE_FILENAME"),
           record_text(rule, "R_MMEDIA_FILENAME"), numbers.definition}));
}

/// Lines go in before the row that points to them. A row that hangs below none, which no window
/// shows, is not carried.
template <class Lines>
void add_rules(statements& writes, ADODB::Recordset rules, Lines lines, copy_numbers& numbers) {
  for (; !rules.eof(); rules.MoveNext()) {
    const std::optional<row_key> parent = numbers.parent_of(rules);
    if (!parent) continue;
    row_key condition = 0;
    if (has_lines(rules)) {
      add_cond_rows(writes, *lines++, numbers);
      condition = checked_key(numbers.next_condition++);
    }
    add_rule_row(writes, rules, numbers, *parent, condition);
  }
}

// The condition counter ends one above the last number used, if there is such a number.
void add_counters(statements& writes, const copy_numbers& numbers) {
  writes.push_back(sql("UPDATE SEQNO SET REPLACE = %1", {numbers.definition}));
  if (!numbers.rules.empty()) {
    writes.push_back(sql("UPDATE SEQNO SET REPLACE_M = %1", {numbers.last_rule()}));
  }
  writes.push_back(sql("UPDATE SEQNO SET REPLACE_COND = %1",
                       {std::min(numbers.next_condition, row_key{highest_key})}));
}

copied_definition copy_rows(ADODB::Connection& conn, row_key source) {
  hold_title_row(conn, source);
  copy_numbers numbers{source, checked_key(next_title_key(conn)),
                       ADODB::last_number(conn, "replace_cond").value_or(0) + 1};
  const row_key first_rule = ADODB::last_number(conn, "replace_m").value_or(0) + 1;
  ADODB::Recordset rules;
  rules.Open(sql("SELECT * FROM REPLACE_M WHERE REPLACE_NO = %1 ORDER BY REPLACE_M_NO", {source}),
             conn);
  number_rules(rules, first_rule, numbers);
  const row_key reserved = reserved_key(rules, first_rule, numbers);
  delete_rules(conn, numbers.definition);
  const std::vector<ADODB::Recordset> found = source_rows(conn, rules, numbers);
  statements writes;
  add_replace_row(writes, found.front(), numbers, reserved);
  add_rules(writes, rules, found.begin() + 1, numbers);
  add_counters(writes, numbers);
  conn.ExecuteAll(writes);
  return {checked_key(numbers.definition), checked_key(reserved)};
}

}  // namespace

copied_definition copy_definition(ADODB::Connection& conn, row_key source) {
  static_cast<void>(getfrom_seqno(conn, "replace"));
  copied_definition copy{};
  in_transaction(conn, [&] { copy = copy_rows(conn, source); });
  return copy;
}

void discard_definition(ADODB::Connection& conn, row_key replace_no) {
  delete_rules(conn, replace_no);
  conn.Execute(sql("Delete from replace where replace_no=<replace_no>", {replace_no}));
}

}  // namespace ta_vorlumine
