#include "browser/replace_folder.h"
#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "rules/branch_deletion.h"
#include "rules/key_counters.h"
#include "rules/outdated_view.h"
#include "store/sql.h"

namespace ta_vorlumine {

using ADODB::sql;
using platform::form;

void replaceForm::Init_ToolBar() {
  for (const char* key : {"addf", "updatef", "delf", "add", "update", "copy", "del"}) {
    Toolbar1.enable(key, false);
  }
}

void replaceForm::press(const std::string& button) {
  // Whoever wants to leave needs no store for it.
  if (button == "close") return window.unload();
  basRS = conn.Execute(sql(
      "select replace_no,replace_m_no from replace where replace_no=<basNodeKey>", {basNodeKey}));
  if (basRS.eof() && basNodeKey != "0") throw vanished_row();
  if (button == "addf") return add_folder();
  if (button == "updatef") return rename_folder();
  if (button == "delf") return delete_folder();
  if (button == "add") return add_definition();
  if (button == "update") return edit_definition();
  if (button == "copy") return copy_definition();
  if (button == "del") return delete_definition();
}

void replaceForm::add_folder() {
  shared().set_mode(edit_mode::new_folder);
  form<replaceFolder>().window.show();
  Init_ToolBar();
}

void replaceForm::rename_folder() {
  shared().set_mode(edit_mode::rename_folder);
  form<replaceFolder>().window.set_caption("置換フォルダの修正");
  form<replaceFolder>().window.show();
  Init_ToolBar();
}

void replaceForm::delete_folder() {
  if (platform::ask("削除してもよろしいですか")) {
    const platform::busy_pointer busy;
    SSTree1.Nodes.Remove(basNodeKey);
    conn.Execute(sql("Delete from replace where replace_no=<basNodeKey>", {basNodeKey}));
    DeleteChild(basNodeKey);
  }
  Init_ToolBar();
}

void replaceForm::delete_definition() {
  if (platform::ask("削除してもよろしいですか")) {
    SSTree1.Nodes.Remove(basNodeKey);
    conn.Execute(sql("Delete from replace where replace_no=<basNodeKey>", {basNodeKey}));
    conn.Execute(sql("delete from replace_m where replace_no=<basNodeKey>", {basNodeKey}));
    conn.Execute(sql("delete from replace_cond where replace_no=<basNodeKey>", {basNodeKey}));
    DeleteChild(basNodeKey);
  }
  Init_ToolBar();
}

// The row stands before the editor opens; an editor that is left untouched takes it away again.
void replaceForm::add_definition() {
  shared().set_mode(edit_mode::new_definition);
  const std::int64_t last_number = getfrom_seqno("replace");
  const std::int16_t reserved = checked_key(getfrom_seqno("replace_m") + 1);
  f_replace_no = insert_title_row(conn, last_number, [&](std::int16_t key) {
    conn.Execute(
        sql("INSERT INTO replace(replace_no,p_replace_no,kind,title,replace_m_no) "
            "VALUES( <new key>,<basNodeKey> ,'C',' ',<reserved rule key>)",
            {key, basNodeKey, reserved}));
  });
  update_seqno("replace");
  f_replace_m_no = reserved;
  show_editor();
}

void replaceForm::edit_definition() {
  shared().set_mode(edit_mode::edit_definition);
  f_replace_no = checked_key(basRS.Fields().Item(0).Value().number());
  f_replace_m_no = static_cast<std::int16_t>(basRS.Fields().Item(1).Value().number());
  show_editor();
}

void replaceForm::copy_definition() {
  shared().set_mode(edit_mode::copy_definition);
  f_replace_m_no = static_cast<std::int16_t>(basRS.Fields().Item(1).Value().number());
  show_editor();
}

void replaceForm::show_editor() {
  form<replace_create>().window.show();
  Init_ToolBar();
  init_form();
}

std::int64_t replaceForm::getfrom_seqno(std::string_view name) {
  return ta_vorlumine::getfrom_seqno(conn, name);
}

void replaceForm::update_seqno(std::string_view name) {
  ta_vorlumine::update_seqno(conn, name);
}

void replaceForm::DeleteChild(const std::string& P_ID) {
  delete_folder_contents(conn, std::stoll(P_ID));
}

}  // namespace ta_vorlumine
