#include "rules/selected_node.h"

#include "browser/replace_form.h"
#include "store/sql.h"

namespace ta_vorlumine {
namespace {

using platform::form;

ADODB::Recordset children(const std::string& key) {
  auto& shared = form<replaceForm>();
  return shared.conn.Execute(
      ADODB::sql("select replace_m_no from replace_m where replace_no=<f_replace_no> "
                 "and p_replace_m_no=<key>",
                 {shared.f_replace_no, key}));
}

}  // namespace

void require_selected_node() {
  auto& shared = form<replaceForm>();
  require_title_row(std::to_string(shared.f_replace_no));
  if (shared.basNodeKey == "0") return;
  const ADODB::Recordset found = shared.conn.Execute(
      ADODB::sql("select replace_m_no from replace_m where replace_no=<f_replace_no> "
                 "and replace_m_no=<basNodeKey>",
                 {shared.f_replace_no, shared.basNodeKey}));
  if (found.eof()) throw vanished_row();
}

void require_free_place() {
  require_selected_node();
  if (has_children(form<replaceForm>().basNodeKey)) throw taken_place();
}

bool has_children(const std::string& key) {
  return !children(key).eof();
}

Node lone_otherwise(const Node& condition) {
  constexpr std::size_t it_and_the_otherwise = 2;
  const Node field = condition.parent();
  const Node other = condition.Next();
  const bool last_shown = field.Children() == it_and_the_otherwise && !other.is_empty();
  if (!last_shown || other.Text() != "以外") return {};
  return children(field.Key()).RecordCount() > it_and_the_otherwise ? Node() : other;
}

}  // namespace ta_vorlumine
