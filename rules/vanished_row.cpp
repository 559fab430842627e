#include "rules/vanished_row.h"

#include "browser/replace_form.h"
#include "store/sql.h"

namespace ta_vorlumine {

void require_title_row(const std::string& replace_no) {
  const ADODB::Recordset found = platform::form<replaceForm>().conn.Execute(
      ADODB::sql("select replace_no from replace where replace_no=<replace_no>", {replace_no}));
  if (found.eof()) throw vanished_row();
}

}  // namespace ta_vorlumine
