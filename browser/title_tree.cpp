#include <exception>
#include <functional>
#include <vector>

#include "browser/replace_form.h"
#include "browser/title_rows.h"
#include "controls/tree/tree_filling.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "rules/failure_words.h"

namespace ta_vorlumine {
namespace {

/// Whether the step was done; the user is told why not.
bool done_or_told(const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const std::exception& failure) {
    platform::message(words_for(failure));
    return false;
  }
}

}  // namespace

void replaceForm::init_form() {
  Init_ToolBar();
  basNodeKey = "0";
  drag_source_node = Node();
  Label1.set_caption("");
  const platform::busy_pointer busy;
  const title_rows rows(conn);
  fill_tree(rows);
  if (!rows.ended_by().empty()) platform::message(rows.ended_by());
}

void replaceForm::fill_tree(const title_rows& rows) {
  const tree_filling filling(SSTree1, ImageList1, "条件設定", "0");
  atNode = filling.root();
  load_titles(rows);
}

// Goes depth first, in a loop: a call for each level could use up a small stack. A row that fails
// costs the tree the rest of its level, not the whole load.
void replaceForm::load_titles(const title_rows& rows) {
  std::vector<ADODB::Recordset> levels;  // from the root down, each on its next row
  const auto open_level = [&](row_key parent) { levels.push_back(rows.children(parent)); };
  done_or_told([&] { open_level(0); });
  while (!levels.empty()) {
    const ADODB::Recordset row = levels.back();
    if (row.eof()) {
      levels.pop_back();
      continue;
    }
    levels.back().MoveNext();
    // What another program moves while the levels are read can be met under two folders.
    if (SSTree1.Nodes.Has(row.Fields().Item("replace_no").Value().text())) continue;
    row_key key = 0;
    const bool added = done_or_told([&] {
      key = row.Fields().Item("replace_no").Value().number();
      add_title_node(rows, row.Fields());
    });
    if (!added) {
      levels.pop_back();
    } else {
      done_or_told([&] { open_level(key); });
    }
  }
}

void replaceForm::add_title_node(const title_rows& rows, const ADODB::Fields& row) {
  const ADODB::Value title = row.Item("title").Value();
  const std::string key = row.Item("replace_no").Value().text();
  const std::string kind = row.Item("kind").Value().text();
  const Node node = SSTree1.Nodes.AddChild(row.Item("p_replace_no").Value().text(), key,
                                           title.is_null() ? "NULL" : title.text(), "0");
  node.parent().Expanded(true);
  show_as_row(node);
  if (kind == "F") {
    show_as_folder(node);
  } else if (kind == "C") {
    node.Tag(key);
    node.kind("置換定義");
    node.Image(rows.picture(row.Item("replace_no").Value().number()));
  }
}

void replaceForm::show_as_folder(const Node& node) {
  node.Image("close");
  node.ExpandedImage("open");
  node.kind("フォルダ");
}

}  // namespace ta_vorlumine
