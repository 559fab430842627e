#include <exception>

#include "browser/replace_form.h"
#include "rules/outdated_view.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

/// A step that fails leaves its part of the window as it is. False then; the next step runs all the
/// same.
template <class Step>
bool try_step(Step step) {
  try {
    step();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

void replaceForm::select_node(const Node& node) {
  basNodeKey = node.Key();
  tmpNode = node;
  const bool was_read = try_step([this] {
    basCopyRs = conn.Execute(
        ADODB::sql("select KIND,comment from replace where replace_no=<basNodeKey>", {basNodeKey}));
  });
  // What was read for the node before says nothing about this one, nor do that node's buttons.
  if (!was_read) {
    basCopyRs.Close();
    Init_ToolBar();
  }
  // Without its row a node would allow nothing for ever, and nobody would know why.
  if (was_read && basNodeKey != "0" && basCopyRs.eof()) throw vanished_row();
  try_step([this] {
    Label1.set_caption(basCopyRs.eof() ? "" : basCopyRs.Fields().Item("comment").Value().text());
  });
  try_step([this] {
    if (basNodeKey == "0") return enable_for_root();
    const std::string kind = basCopyRs.Fields().Item("KIND").Value().text();
    if (kind == "F") enable_for_folder();
    if (kind == "C") enable_for_definition();
    if (kind != "F" && kind != "C") Init_ToolBar();
  });
}

void replaceForm::enable(std::initializer_list<const char*> on,
                         std::initializer_list<const char*> off) {
  for (const char* key : on) Toolbar1.enable(key, true);
  for (const char* key : off) Toolbar1.enable(key, false);
}

void replaceForm::enable_for_root() {
  enable({"addf", "add"}, {"updatef", "delf", "update", "del", "copy"});
}

void replaceForm::enable_for_folder() {
  enable({"addf", "updatef", "delf", "add"}, {"update", "del", "copy"});
}

void replaceForm::enable_for_definition() {
  enable({"update", "del", "copy"}, {"addf", "updatef", "delf", "add"});
}

}  // namespace ta_vorlumine
