#include "conditions/new_condition.h"

#include "rules/condition_rows.h"
#include "rules/key_counters.h"
#include "rules/shared_state.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

void renew_condition_number() {
  auto& state = shared();
  if (getfrom_seqno(state.conn, "replace_cond") + 1 == state.f_replace_cond_no) return;
  state.f_replace_cond_no = free_condition_number(state.conn, state.f_replace_no);
}

// Keys of rule rows may coincide between definitions, and the first count takes them all.
std::int64_t count_children() {
  auto& state = shared();
  state.basRS = state.conn.Execute(
      sql("select count(*) from replace_m where p_replace_m_no=<basNodeKey>", {state.basNodeKey}));
  if (state.basRS.Fields().Item(0).Value().number() == 0) return 0;
  state.basRS =
      state.conn.Execute(sql("select count(*) from replace_m where p_replace_m_no=<basNodeKey> "
                             "and replace_no=<f_replace_no>",
                             {state.basNodeKey, state.f_replace_no}));
  return state.basRS.Fields().Item(0).Value().number();
}

void insert_new_condition(std::int64_t children) {
  auto& state = shared();
  insert_condition_row(state.conn, state.f_replace_no, state.selected_key());
  if (children > 0) return;
  insert_otherwise_row(state.conn, state.f_replace_no, state.selected_key());
}

}  // namespace ta_vorlumine
