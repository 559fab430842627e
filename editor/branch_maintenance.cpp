#include "controls/tree/tree_filling.h"
#include "editor/replace_create.h"
#include "rules/branch_deletion.h"
#include "rules/condition_rows.h"
#include "rules/record_values.h"
#include "rules/transaction.h"

namespace ta_vorlumine {

// The row goes in before its node: only the store knows whether its number is free.
void replace_create::ins_yiwai() {
  auto& state = shared();
  row_key key = 0;
  in_transaction(state.conn, [&] {
    hold_title_row(state.conn, state.f_replace_no);
    key = insert_otherwise_row(state.conn, state.f_replace_no, state.selected_key());
  });
  state.atNode = SSTree1.Nodes.AddChild(state.basNodeKey, std::to_string(key), "以外");
  state.atNode.parent().Expanded(true);
  show_as_row(state.atNode);
  state.atNode.Image("cond");
  state.atNode.kind("以外の条件");
}

void replace_create::DeleteChild(const std::string& P_ID) {
  delete_branch(shared().conn, shared().f_replace_no, std::stoll(P_ID));
}

void replace_create::delete_from_cond(std::int32_t replace_no, std::int32_t p_replace_m_no) {
  delete_only_child(shared().conn, replace_no, p_replace_m_no);
}

std::string replace_create::GetRecordValue(const ADODB::Recordset& rs, const std::string& fid) {
  return ta_vorlumine::GetRecordValue(rs, fid);
}

std::string replace_create::GetRecordNum(const ADODB::Recordset& rs, const std::string& fid) {
  return ta_vorlumine::GetRecordNum(rs, fid);
}

}  // namespace ta_vorlumine
