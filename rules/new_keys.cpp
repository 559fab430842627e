#include "rules/new_keys.h"

#include <array>
#include <stdexcept>
#include <vector>

#include "platform/messages.h"
#include "store/key_counters.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

std::int64_t counter(ADODB::Connection& conn, std::string_view name) {
  return ADODB::last_number(conn, name).value_or(0);
}

/// The first number behind `last` that is not among `used`, which ascend and all lie behind it.
row_key first_gap(row_key last, ADODB::Recordset used) {
  row_key number = last + 1;
  for (; !used.eof(); used.MoveNext()) {
    const row_key taken = used.Fields().Item(0).Value().number();
    if (taken > number) break;
    number = taken + 1;
  }
  return number;
}

}  // namespace

std::int16_t checked_key(row_key key) {
  if (key < 1) throw std::runtime_error("番号が正しくないため、登録できません。");
  if (key > highest_key) {
    throw std::runtime_error("番号が上限の32767に達したため、これ以上登録できません。");
  }
  return static_cast<std::int16_t>(key);
}

std::int64_t getfrom_seqno(ADODB::Connection& conn, std::string_view name) {
  const auto last = ADODB::last_number(conn, name);
  if (!last) platform::message("SEQNOテーブルがありません");
  return last.value_or(0);
}

void update_seqno(ADODB::Connection& conn, std::string_view name) {
  ADODB::advance_number(conn, name);
}

row_key next_title_key(ADODB::Connection& conn) {
  const row_key last = counter(conn, "replace");
  const row_key key =
      first_gap(last, conn.Execute(sql("select replace_no from replace where replace_no> <last> "
                                       "order by replace_no",
                                       {last})));
  if (key > last + 1) conn.Execute(sql("update seqno set replace = <number>", {key - 1}));
  return key;
}

row_key next_rule_key(ADODB::Connection& conn, row_key definition) {
  const std::vector<ADODB::Recordset> found = conn.ExecuteAll(std::array{
      ADODB::look_up_of("replace_m"),
      sql("select max(replace_m_no) from replace_m where replace_no=<definition>", {definition})});
  const row_key last = ADODB::last_number(found[0]).value_or(0);
  const ADODB::Value highest = found[1].Fields().Item(0).Value();
  if (highest.is_null() || highest.number() <= last) return last + 1;
  conn.Execute(sql("update seqno set replace_m = <number>", {highest}));
  return highest.number() + 1;
}

row_key next_condition_number(ADODB::Connection& conn, row_key definition) {
  const row_key last = counter(conn, "replace_cond");
  const row_key number =
      first_gap(last, conn.Execute(sql("select replace_cond_no from replace_cond "
                                       "where replace_no=<definition> and replace_cond_no> <last> "
                                       "union select replace_cond_no from replace_m "
                                       "where replace_no=<definition> and replace_cond_no> <last> "
                                       "order by 1",
                                       {definition, last, definition, last})));
  if (number > last + 1)
    conn.Execute(sql("update seqno set replace_cond = <number>", {number - 1}));
  return number;
}

}  // namespace ta_vorlumine
