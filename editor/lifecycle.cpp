#include "editor/replace_create.h"
#include "platform/busy_pointer.h"
#include "rules/definition_copy.h"
#include "rules/outdated_view.h"
#include "rules/record_values.h"
#include "rules/with_undo.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;

void replace_create::load() {
  auto& state = shared();
  Init_ToolBar();
  if (state.mode() == edit_mode::copy_definition) {
    const platform::busy_pointer busy;
    const copied_definition copy = copy_definition(state.conn, state.selected_key());
    state.f_replace_no = copy.replace_no;
    state.f_replace_m_no = copy.replace_m_no;
  }
  with_undo([this] { open_definition(); },
            [&] {
              // A new definition has no title yet and a copy has its source's. Without the editor
              // the user could give them none, so they go again.
              if (state.mode() == edit_mode::edit_definition) return;
              discard_definition(state.conn, state.f_replace_no);
            });
}

void replace_create::open_definition() {
  loaded_ = {stored_fields(), {}, {}};
  // A new definition may get its value at once: until the first click the root counts as selected.
  if (shared().mode() == edit_mode::new_definition) {
    Toolbar1.enable(cond_val_set_button, true);
  } else {
    fill_fields();
  }
  init_tree();
}

// A copy shows its source's title and remark, which are its own too.
void replace_create::fill_fields() {
  auto& rows = shared().basRS;
  constexpr ADODB::words select_of_copy =
      "select p_replace_no,title,comment from replace where replace_no=<basNodeKey>";
  constexpr ADODB::words select = "select title,comment from replace where replace_no=<basNodeKey>";
  const bool copied = shared().mode() == edit_mode::copy_definition;
  rows = shared().conn.Execute(sql(copied ? select_of_copy : select, {shared().basNodeKey}));
  if (rows.eof()) throw vanished_row();
  Text1.set_text(column(rows, "title").text());
  // An empty remark is stored as a blank, which would stand before what the user types.
  const std::string remark = column(rows, "comment").text();
  Text2.set_text(remark == " " ? "" : remark);
  loaded_.shown_title = Text1.text();
  loaded_.shown_remark = Text2.text();
}

}  // namespace ta_vorlumine
