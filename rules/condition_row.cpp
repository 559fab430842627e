#include "rules/condition_row.h"

#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "rules/new_keys.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;
using platform::form;

void renew_condition_number() {
  auto& editor = form<replace_create>();
  const std::int64_t next = form<replaceForm>().getfrom_seqno("replace_cond") + 1;
  if (next != editor.f_replace_cond_no) editor.lend_condition_number();
}

// Keys of rule rows may coincide between definitions, and the first count takes them all.
std::int64_t count_children() {
  auto& shared = form<replaceForm>();
  shared.basRS = shared.conn.Execute(
      sql("select count(*) from replace_m where p_replace_m_no=<basNodeKey>", {shared.basNodeKey}));
  if (shared.basRS.Fields().Item(0).Value().number() == 0) return 0;
  shared.basRS =
      shared.conn.Execute(sql("select count(*) from replace_m where p_replace_m_no=<basNodeKey> "
                              "and replace_no=<f_replace_no>",
                              {shared.basNodeKey, shared.f_replace_no}));
  return shared.basRS.Fields().Item(0).Value().number();
}

void insert_condition_row() {
  auto& shared = form<replaceForm>();
  const std::int16_t row = free_rule_key(shared);
  const std::int16_t lines = checked_key(shared.getfrom_seqno("replace_cond") + 1);
  shared.conn.Execute(
      sql("insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
          "replace_cond_no,replace_no) values(<M>,<basNodeKey>,'C','0',<C>,<f_replace_no>)",
          {row, shared.basNodeKey, lines, shared.f_replace_no}));
  shared.update_seqno("replace_m");
  shared.update_seqno("replace_cond");
}

}  // namespace ta_vorlumine
