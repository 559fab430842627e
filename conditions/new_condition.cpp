#include "conditions/new_condition.h"

#include "rules/condition_rows.h"
#include "rules/new_keys.h"
#include "rules/shared_state.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

bool new_condition::stands_already() {
  auto& state = shared();
  if (tried_) {
    const ADODB::Recordset found = state.conn.Execute(
        sql("select replace_m_no from replace_m where replace_no=<f_replace_no> "
            "and replace_m_no=<key> and p_replace_m_no=<basNodeKey> and replace_cond_no=<lines>",
            {state.f_replace_no, tried_->key, state.basNodeKey, tried_->lines}));
    if (!found.eof()) {
      state.f_replace_cond_no = tried_->lines;
      return true;
    }
  }
  state.f_replace_cond_no = checked_key(next_condition_number(state.conn, state.f_replace_no));
  return false;
}

void new_condition::insert(std::int64_t children) {
  auto& state = shared();
  const row_key key = insert_condition_row(state.conn, state.f_replace_no, state.selected_key(),
                                           state.f_replace_cond_no);
  if (children == 0) {
    insert_otherwise_row(state.conn, state.f_replace_no, state.selected_key());
  }
  tried_ = {key, state.f_replace_cond_no};
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

}  // namespace ta_vorlumine
