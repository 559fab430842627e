#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/selected_node.h"

namespace ta_vorlumine {

using platform::form;

bool replace_create::remove_emptied_condition() {
  const Node condition = form<replaceForm>().tmpNode;
  if (f_cond_value == 0) return true;
  const Node otherwise = lone_otherwise(condition);
  const bool has_branch =
      has_children(condition.Key()) || (!otherwise.is_empty() && has_children(otherwise.Key()));
  if (has_branch && !platform::ask("削除してもよろしいですか")) return false;
  if (!otherwise.is_empty()) DeleteChild(otherwise.Key());
  DeleteChild(condition.Key());
  return true;
}

}  // namespace ta_vorlumine
