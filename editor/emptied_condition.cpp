#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "platform/messages.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

bool has_children(const std::string& key) {
  auto& shared = form<replaceForm>();
  return !shared.conn
              .Execute(sql("select replace_m_no from replace_m where replace_no=<f_replace_no> "
                           "and p_replace_m_no=<key>",
                           {shared.f_replace_no, key}))
              .eof();
}

/// The key of the otherwise branch that would stand alone without the condition `key`; empty if
/// there is none or other conditions remain.
std::string lone_otherwise(const Node& condition) {
  const Node other = condition.Next();
  const bool last_ordinary = condition.parent().Children() == 2 && !other.is_empty();
  return last_ordinary && other.Text() == "以外" ? other.Key() : "";
}

}  // namespace

bool replace_create::remove_emptied_condition() {
  const Node condition = form<replaceForm>().tmpNode;
  if (f_cond_value == 0) return true;
  const std::string otherwise = lone_otherwise(condition);
  const bool has_branch =
      has_children(condition.Key()) || (!otherwise.empty() && has_children(otherwise));
  if (has_branch && !platform::ask("削除してもよろしいですか")) return false;
  if (!otherwise.empty()) DeleteChild(otherwise);
  DeleteChild(condition.Key());
  return true;
}

}  // namespace ta_vorlumine
