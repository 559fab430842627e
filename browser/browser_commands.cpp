#include "browser/replace_folder.h"
#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "rules/branch_deletion.h"
#include "rules/new_keys.h"
#include "rules/outdated_view.h"
#include "rules/transaction.h"
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
    in_transaction(conn, [this] {
      conn.Execute(sql("Delete from replace where replace_no=<basNodeKey>", {basNodeKey}));
      DeleteChild(basNodeKey);
    });
    SSTree1.Nodes.Remove(basNodeKey);
  }
  Init_ToolBar();
}

void replaceForm::delete_definition() {
  if (platform::ask("削除してもよろしいですか")) {
    in_transaction(conn, [this] {
      conn.Execute(sql("Delete from replace where replace_no=<basNodeKey>", {basNodeKey}));
      delete_rules(conn, shared().selected_key());
      DeleteChild(basNodeKey);
    });
    SSTree1.Nodes.Remove(basNodeKey);
  }
  Init_ToolBar();
}

// The row stands before the editor opens; an editor that is left untouched takes it away again.
void replaceForm::add_definition() {
  shared().set_mode(edit_mode::new_definition);
  static_cast<void>(getfrom_seqno("replace"));
  in_transaction(conn, [this] {
    hold_title_row(conn, shared().selected_key());
    const std::int16_t key = checked_key(next_title_key(conn));
    // What is left of a definition that another program deleted badly must not come up in this one.
    delete_rules(conn, key);
    const std::int16_t reserved = checked_key(next_rule_key(conn, key));
    conn.Execute(
        sql("INSERT INTO replace(replace_no,p_replace_no,kind,title,replace_m_no) "
            "VALUES( <new key>,<basNodeKey> ,'C',' ',<reserved rule key>)",
            {key, basNodeKey, reserved}));
    update_seqno("replace");
    f_replace_m_no = reserved;
    f_replace_no = key;
  });
  show_editor();
}

void replaceForm::edit_definition() {
  shared().set_mode(edit_mode::edit_definition);
  f_replace_no = checked_key(basRS.Fields().Item(0).Value().number());
  read_reserved_key();
  show_editor();
}

void replaceForm::copy_definition() {
  shared().set_mode(edit_mode::copy_definition);
  read_reserved_key();
  show_editor();
}

// Another program may have left it empty; the field dialog draws a key then.
void replaceForm::read_reserved_key() {
  const ADODB::Value reserved = basRS.Fields().Item(1).Value();
  f_replace_m_no = reserved.is_null() || reserved.number() == 0 ? std::int16_t{0}
                                                                : checked_key(reserved.number());
}

void replaceForm::show_editor() {
  form<replace_create>().window.show();
  Init_ToolBar();
  init_form();
  const std::string edited = std::to_string(f_replace_no);
  if (SSTree1.Nodes.Has(edited)) SSTree1.move_keyboard(SSTree1.Nodes.Item(edited));
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
