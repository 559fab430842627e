#include "editor/selected_node.h"

#include "browser/replace_form.h"
#include "browser/vanished_row.h"
#include "store/sql.h"

namespace ta_vorlumine {

void require_selected_node() {
  auto& shared = platform::form<replaceForm>();
  require_title_row(std::to_string(shared.f_replace_no));
  if (shared.basNodeKey == "0") return;
  const ADODB::Recordset found = shared.conn.Execute(
      ADODB::sql("select replace_m_no from replace_m where replace_no=<f_replace_no> "
                 "and replace_m_no=<basNodeKey>",
                 {shared.f_replace_no, shared.basNodeKey}));
  if (found.eof()) throw vanished_row();
}

}  // namespace ta_vorlumine
