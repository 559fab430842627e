#include <exception>

#include "browser/replace_form.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

// A step that fails leaves its part of the window as it is; the next one still runs, so that a row
// that another program has taken away costs no more than its own buttons.
template <class Step>
void try_step(Step step) {
  try {
    step();
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): see above
  }
}

}  // namespace

void replaceForm::select_node(const Node& node) {
  basNodeKey = node.Key();
  tmpNode = node;
  try_step([this] {
    basCopyRs = conn.Execute(
        ADODB::sql("select KIND,comment from replace where replace_no=<basNodeKey>", {basNodeKey}));
  });
  try_step([this] {
    Label1.set_caption(basCopyRs.eof() ? "" : basCopyRs.Fields().Item("comment").Value().text());
  });
  try_step([this] {
    if (basNodeKey == "0") return enable_for_root();
    const std::string kind = basCopyRs.Fields().Item("KIND").Value().text();
    if (kind == "F") enable_for_folder();
    if (kind == "C") enable_for_definition();
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
