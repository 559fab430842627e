#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "rules/vanished_row.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

}  // namespace

void replace_create::select_node(const Node& node) {
  auto& shared = form<replaceForm>();
  shared.basNodeKey = node.Key();
  shared.tmpNode = node;
  shared.basRS =
      shared.conn.Execute(sql("select use_type from replace_m where replace_m_no=<basNodeKey> "
                              "and replace_no=<f_replace_no>",
                              {shared.basNodeKey, shared.f_replace_no}));
  shared.basCopyRs =
      shared.conn.Execute(sql("select count(*) from replace_m where p_replace_m_no=<basNodeKey> "
                              "and replace_no=<f_replace_no>",
                              {shared.basNodeKey, shared.f_replace_no}));
  enable_for(node);
}

// The root has no row: it is known by its text, and the tree itself tells whether it has a child.
void replace_create::enable_for(const Node& node) {
  if (node.Text() == "置換条件") {
    const bool alone = SSTree1.Nodes.Count() == 1;
    return enable(alone, false, alone, false);
  }
  auto& shared = form<replaceForm>();
  if (shared.basRS.eof()) throw vanished_row();
  const std::string use_type = shared.basRS.Fields().Item(0).Value().text();
  if (use_type == "C") {
    const ADODB::Value count = shared.basCopyRs.Fields().Item(0).Value();
    const bool childless = count.is_null() || count.number() <= 0;
    enable(childless, node.Text() != "以外", childless, true);
  } else if (use_type == "R") {
    enable(false, false, true, true);
  } else if (use_type == "F") {
    enable(false, true, false, true);
  }
}

void replace_create::enable(bool addr_set, bool cond_set, bool cond_val_set, bool del_set) {
  Toolbar1.enable(addr_set_button, addr_set);
  Toolbar1.enable(cond_set_button, cond_set);
  Toolbar1.enable(cond_val_set_button, cond_val_set);
  Toolbar1.enable(del_set_button, del_set);
}

}  // namespace ta_vorlumine
