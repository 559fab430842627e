#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "platform/busy_pointer.h"
#include "rules/new_keys.h"
#include "rules/vanished_row.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;
using platform::form;

void replace_create::load() {
  auto& browser = form<replaceForm>();
  const int mode = std::stoi(browser.basAU);
  const std::int32_t selected = std::stoi(browser.basNodeKey);
  Init_ToolBar();
  if (mode == 6) up_replace_no = checked_key(selected);
  if (mode == 5) up_replace_no = checked_key(browser.f_replace_no);
  if (mode == 8) {
    const platform::busy_pointer busy;
    copy_definition(selected);
  }
  try {
    show_definition(mode);
  } catch (...) {
    // Without its editor a new definition has no title, and a copy that of its source.
    if (mode != 6) delete_definition(up_replace_no);
    throw;
  }
}

void replace_create::show_definition(int mode) {
  const std::string& selected = form<replaceForm>().basNodeKey;
  // The root counts as selected, and a value is what it takes without a further look.
  if (mode == 5) Toolbar1.enable(cond_val_set_button, true);
  if (mode == 6) {
    fill_fields(sql("select title,comment from replace where replace_no=<basNodeKey>", {selected}));
  }
  if (mode == 8) {
    fill_fields(sql("select p_replace_no,title,comment from replace where replace_no=<basNodeKey>",
                    {selected}));
  }
  init_tree();
}

void replace_create::fill_fields(const std::string& statement) {
  auto& rows = form<replaceForm>().basRS;
  rows = form<replaceForm>().conn.Execute(statement);
  if (rows.eof()) throw vanished_row();
  Text1.set_text(rows.Fields().Item("title").Value().text());
  Text2.set_text(rows.Fields().Item("comment").Value().text());
}

void replace_create::refresh_browser() {
  form<replaceForm>().Init_ToolBar();
  form<replaceForm>().init_form();
}

}  // namespace ta_vorlumine
