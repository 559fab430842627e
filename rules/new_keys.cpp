#include "rules/new_keys.h"

#include <limits>
#include <stdexcept>

#include "browser/replace_form.h"
#include "store/key_counters.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

constexpr int most_tries = 1000;

}  // namespace

std::int16_t checked_key(std::int64_t key) {
  if (key < 1) throw std::runtime_error("番号が正しくないため、登録できません。");
  if (key > std::numeric_limits<std::int16_t>::max()) {
    throw std::runtime_error("番号が上限の32767に達したため、これ以上登録できません。");
  }
  return static_cast<std::int16_t>(key);
}

std::int16_t insert_with_new_key(replaceForm& shared, std::string_view name,
                                 const std::function<void(std::int16_t key)>& insert) {
  return insert_with_new_key(shared, name, shared.getfrom_seqno(name), insert);
}

std::int16_t insert_with_new_key(replaceForm& shared, std::string_view name,
                                 std::int64_t last_number,
                                 const std::function<void(std::int16_t key)>& insert) {
  for (int tries = 1;; ++tries) {
    const std::int16_t key = checked_key(last_number + 1);
    try {
      insert(key);
      return key;
    } catch (const ADODB::Error& failure) {
      const bool taken = failure.kind() == ADODB::failure_kind::refused_by_key;
      if (!taken || shared.conn.in_transaction() || tries == most_tries) throw;
      shared.update_seqno(name);
      const std::int64_t next_number = ADODB::last_number(shared.conn, name).value_or(0);
      if (next_number <= last_number) throw;  // a table of counters without its row stays as it is
      last_number = next_number;
    }
  }
}

std::int16_t free_rule_key(replaceForm& shared) {
  std::int64_t last_number = shared.getfrom_seqno("replace_m");
  const ADODB::Recordset rows = shared.conn.Execute(
      ADODB::sql("select max(replace_m_no) from replace_m where replace_no=<f_replace_no>",
                 {shared.f_replace_no}));
  const ADODB::Value highest = rows.Fields().Item(0).Value();
  for (; !highest.is_null() && last_number < highest.number(); ++last_number)
    shared.update_seqno("replace_m");
  return checked_key(last_number + 1);
}

}  // namespace ta_vorlumine
