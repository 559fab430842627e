#include "rules/key_counters.h"

#include <limits>
#include <stdexcept>

#include "platform/messages.h"
#include "store/key_counters.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

constexpr int most_tries = 1000;

std::int16_t insert_with_new_key(ADODB::Connection& conn, std::string_view counter,
                                 std::int64_t last_number,
                                 const std::function<void(std::int16_t key)>& insert) {
  for (int tries = 1;; ++tries) {
    const std::int16_t key = checked_key(last_number + 1);
    try {
      insert(key);
      return key;
    } catch (const ADODB::Error& failure) {
      const bool taken = failure.kind() == ADODB::failure_kind::refused_by_key;
      if (!taken || conn.in_transaction() || tries == most_tries) throw;
      update_seqno(conn, counter);
      const std::int64_t next_number = ADODB::last_number(conn, counter).value_or(0);
      if (next_number <= last_number) throw;  // a table of counters without its row stays as it is
      last_number = next_number;
    }
  }
}

}  // namespace

std::int16_t checked_key(row_key key) {
  if (key < 1) throw std::runtime_error("番号が正しくないため、登録できません。");
  if (key > std::numeric_limits<std::int16_t>::max()) {
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

std::int16_t insert_title_row(ADODB::Connection& conn, std::int64_t last_number,
                              const std::function<void(std::int16_t key)>& insert) {
  return insert_with_new_key(conn, "replace", last_number, insert);
}

// The counter is advanced past the definition's rows before the insert: inside a transaction of
// PostgreSQL a duplicate key aborts all of it, so the insert could not be tried again.
std::int16_t insert_rule_row(ADODB::Connection& conn, row_key definition, std::int64_t last_number,
                             const std::function<void(std::int16_t key)>& insert) {
  const ADODB::Recordset rows = conn.Execute(
      sql("select max(replace_m_no) from replace_m where replace_no=<definition>", {definition}));
  const ADODB::Value highest = rows.Fields().Item(0).Value();
  for (; !highest.is_null() && last_number < highest.number(); ++last_number) {
    update_seqno(conn, "replace_m");
  }
  return insert_with_new_key(conn, "replace_m", last_number, insert);
}

std::int16_t free_condition_number(ADODB::Connection& conn, row_key definition) {
  for (std::int16_t before = 0;;) {
    const std::int16_t number = checked_key(getfrom_seqno(conn, "replace_cond") + 1);
    // A table of counters without its row stays as it is, and so does the number.
    if (number == before) throw std::runtime_error("条件の番号を決められません。");
    const ADODB::Recordset lines =
        conn.Execute(sql("select max(sno) from replace_cond where replace_cond_no=<number> "
                         "and replace_no=<definition>",
                         {number, definition}));
    if (lines.eof() || lines.Fields().Item(0).Value().is_null()) return number;
    update_seqno(conn, "replace_cond");
    before = number;
  }
}

}  // namespace ta_vorlumine
