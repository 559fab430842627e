#include <array>

#include "editor/replace_create.h"
#include "rules/outdated_view.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

void replace_create::select_node(const Node& node) {
  auto& state = shared();
  state.basNodeKey = node.Key();
  state.tmpNode = node;
  const auto found = state.conn.ExecuteAll(
      std::array{sql("select use_type from replace_m where replace_m_no=<basNodeKey> "
                     "and replace_no=<f_replace_no>",
                     {state.basNodeKey, state.f_replace_no}),
                 sql("select count(*) from replace_m where p_replace_m_no=<basNodeKey> "
                     "and replace_no=<f_replace_no>",
                     {state.basNodeKey, state.f_replace_no})});
  state.basRS = found[0];
  state.basCopyRs = found[1];
  enable_for(node);
}

// The root has no row: it is known by its text, and the tree itself tells whether it has a child.
void replace_create::enable_for(const Node& node) {
  if (node.Text() == "置換条件") {
    const bool alone = SSTree1.Nodes.Count() == 1;
    return enable({.addr_set = alone, .cond_val_set = alone});
  }
  auto& state = shared();
  if (state.basRS.eof()) throw vanished_row();
  const std::string use_type = state.basRS.Fields().Item(0).Value().text();
  if (use_type == "C") {
    const ADODB::Value count = state.basCopyRs.Fields().Item(0).Value();
    const bool childless = count.is_null() || count.number() <= 0;
    enable({.addr_set = childless,
            .cond_set = node.Text() != "以外",
            .cond_val_set = childless,
            .del_set = true});
  } else if (use_type == "R") {
    enable({.cond_val_set = true, .del_set = true});
  } else if (use_type == "F") {
    enable({.cond_set = true, .del_set = true});
  }
}

void replace_create::enable(const allowed_buttons& allowed) {
  Toolbar1.enable(addr_set_button, allowed.addr_set);
  Toolbar1.enable(cond_set_button, allowed.cond_set);
  Toolbar1.enable(cond_val_set_button, allowed.cond_val_set);
  Toolbar1.enable(del_set_button, allowed.del_set);
}

}  // namespace ta_vorlumine
