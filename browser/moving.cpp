#include <set>

#include "browser/replace_form.h"
#include "platform/messages.h"
#include "rules/row_checks.h"
#include "rules/transaction.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

constexpr int left_button = 1;

/// True if a node above `target`, the root not counted, bears the text of `source`. The texts
/// are compared, not the nodes: a folder is also kept from below another one of its name.
bool lies_below_namesake(const Node& source, const Node& target) {
  for (Node above = target.parent(); !above.parent().is_empty(); above = above.parent()) {
    if (above.Text() == source.Text()) return true;
  }
  return false;
}

/// True if the store has `folder` within the subtree of `source`, where the shown tree may not know
/// it yet: another program may have moved folders meanwhile. Raises vanished_row for a row on the
/// way up that is gone or has no parent.
bool lies_below_in_store(ADODB::Connection& conn, const std::string& source, std::string folder) {
  std::set<std::string> passed;
  while (folder != "0" && passed.insert(folder).second) {
    if (folder == source) return true;
    const ADODB::Recordset row = conn.Execute(
        ADODB::sql("select p_replace_no from replace where replace_no=<replace_no>", {folder}));
    if (row.eof() || row.Fields().Item(0).Value().is_null()) throw vanished_row();
    folder = row.Fields().Item(0).Value().text();
  }
  return false;
}

/// False if the move would make a loop. No other folder moves meanwhile, and the target stays.
bool store_move(ADODB::Connection& conn, const std::string& source, const std::string& target) {
  hold_moves(conn);
  hold_title_row(conn, std::stoll(target));
  require_title_row(conn, std::stoll(source));
  if (lies_below_in_store(conn, source, target)) return false;
  conn.Execute(ADODB::sql("UPDATE REPLACE SET P_REPLACE_NO = <p_val> WHERE REPLACE_NO = <val>",
                          {target, source}));
  return true;
}

}  // namespace

void replaceForm::move_title_node(const Node& source, const Node& target) {
  if (target.Tag() != "0" || source.Key() == "0") return;
  if (target.Key() != "0" && lies_below_namesake(source, target)) {
    return platform::message("この場所への移動はできません");
  }
  bool moved = false;
  in_transaction(conn, [&] { moved = store_move(conn, source.Key(), target.Key()); });
  if (moved) return source.parent(target);
  platform::message("この場所への移動はできません");
  init_form();
}

void replaceForm::file_title_node(const Node& source, const Node& target) {
  if (source.Text() != target.Text()) move_title_node(source, target);
}

void replaceForm::press_on_tree(int x, int y) {
  drag_source_node = SSTree1.HitTest(x, y);
  if (!drag_source_node.is_empty()) SSTree1.SelectedItem(drag_source_node);
}

void replaceForm::move_on_tree(int buttons) {
  if (drag_source_node.is_empty() || buttons != left_button) return;
  drag_running = true;
  SSTree1.Drag(SSTree1.SelectedItem());
}

void replaceForm::drag_over_tree(int x, int y) {
  if (drag_running) SSTree1.DropHighlight(SSTree1.HitTest(x, y));
}

void replaceForm::drop_on_tree() {
  const Node target = SSTree1.DropHighlight();
  SSTree1.DropHighlight(Node());
  drag_running = false;
  if (target.is_empty() || drag_source_node.is_empty()) return;
  file_title_node(drag_source_node, target);
}

}  // namespace ta_vorlumine
