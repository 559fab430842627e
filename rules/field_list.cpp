#include "rules/field_list.h"

#include "rules/shared_state.h"

namespace ta_vorlumine {

void fill_field_list(platform::ComboBox& list) {
  list.Clear();
  auto& rows = shared().basRS;
  rows = shared().conn.Execute("select field_id,field_name from field");
  for (; !rows.eof(); rows.MoveNext()) list.AddItem(rows.Fields().Item(1).Value().text());
  rows.Close();
}

}  // namespace ta_vorlumine
