#include <optional>

#include "editor/replace_create.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "rules/branch_deletion.h"
#include "rules/condition_rows.h"
#include "rules/outdated_view.h"
#include "rules/record_values.h"
#include "rules/transaction.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

void delete_row(row_key key) {
  shared().conn.Execute(
      sql("delete from replace_m where replace_no=<replace_no> and replace_m_no=<basNodeKey>",
          {shared().f_replace_no, key}));
}

void delete_with_branch(row_key key) {
  delete_row(key);
  delete_branch(shared().conn, shared().f_replace_no, key);
}

/// The last ordinary condition of a field takes the otherwise branch along, which alone would mean
/// nothing. Gives the keys of the nodes that go.
std::vector<row_key> delete_condition(const ADODB::Recordset& row) {
  auto& state = shared();
  const row_key key = state.selected_key();
  std::vector<row_key> gone;
  if (const auto otherwise = lone_otherwise(state.conn, state.f_replace_no, key)) {
    delete_with_branch(*otherwise);
    gone.push_back(*otherwise);
  }
  if (const ADODB::Value cond_no = column(row, "replace_cond_no"); !cond_no.is_null()) {
    state.conn.Execute(
        sql("delete from replace_cond where replace_no=<replace_no> "
            "and replace_cond_no=<replace_cond_no>",
            {state.f_replace_no, cond_no}));
  }
  delete_with_branch(key);
  gone.push_back(key);
  return gone;
}

/// Nothing if the otherwise branch is selected, which isn't deleted by itself.
std::optional<std::vector<row_key>> delete_selected() {
  auto& state = shared();
  hold_title_row(state.conn, state.f_replace_no);
  state.basRS = state.conn.Execute(
      sql("select * from replace_m where replace_m_no= <basNodeKey> and replace_no=<f_replace_no>",
          {state.basNodeKey, state.f_replace_no}));
  if (state.basRS.eof()) throw vanished_row();
  const std::string use_type = column(state.basRS, "use_type").text();
  if (use_type == "C" && state.tmpNode.Text() == "以外") return std::nullopt;
  if (use_type == "C") return delete_condition(state.basRS);
  if (use_type != "F" && use_type != "R") return std::vector<row_key>{};
  if (use_type == "F") {
    delete_with_branch(state.selected_key());
  } else {
    delete_row(state.selected_key());
  }
  return std::vector<row_key>{state.selected_key()};
}

}  // namespace

// As one transaction: what a failure, or another program, stops in the middle would leave rows that
// no window shows.
void replace_create::del_set() {
  auto& state = shared();
  if (state.basNodeKey == "0") return Init_ToolBar();
  if (!platform::ask("削除してもよろしいですか")) return;
  const platform::busy_pointer busy;
  std::optional<std::vector<row_key>> gone;
  in_transaction(state.conn, [&] { gone = delete_selected(); });
  if (gone) {
    remove_nodes(*gone);
  } else {
    platform::message("条件あるときは以外条件が削除出来ません");
  }
  Init_ToolBar();
}

void replace_create::remove_nodes(const std::vector<row_key>& keys) {
  for (const row_key key : keys) {
    // Another program may have added the row since the tree was built.
    const std::string node = std::to_string(key);
    if (SSTree1.Nodes.Has(node)) SSTree1.Nodes.Remove(node);
  }
}

}  // namespace ta_vorlumine
