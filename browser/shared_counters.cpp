#include "browser/replace_form.h"
#include "platform/messages.h"
#include "store/key_counters.h"

namespace ta_vorlumine {

std::int64_t replaceForm::getfrom_seqno(std::string_view name) {
  const auto last = ADODB::last_number(conn, name);
  if (!last) platform::message("SEQNOテーブルがありません");
  return last.value_or(0);
}

void replaceForm::update_seqno(std::string_view name) {
  ADODB::advance_number(conn, name);
}

}  // namespace ta_vorlumine
