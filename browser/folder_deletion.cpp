#include "browser/replace_form.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

// Leaves first: a row of `replace` goes when nothing hangs below it any more, so that whatever
// stops the walk leaves no row below a missing one that the walk has passed.
void replaceForm::DeleteChild(const std::string& P_ID) {
  ADODB::Recordset children = conn.Execute(
      sql("select replace_no,P_replace_NO,replace_m_no from replace where p_replace_no= <P_ID>",
          {P_ID}));
  for (; !children.eof(); children.MoveNext()) {
    const std::string replace_no = children.Fields().Item("replace_no").Value().text();
    conn.Execute(sql("delete from replace_m where replace_no=<replace_no>", {replace_no}));
    conn.Execute(sql("delete from replace_cond where replace_no=<replace_no>", {replace_no}));
    DeleteChild(replace_no);
  }
  conn.Execute(sql("Delete from replace where replace_no=<P_ID>", {P_ID}));
}

}  // namespace ta_vorlumine
