#include "browser/replace_folder.h"

#include "browser/replace_form.h"
#include "controls/tree/tree_filling.h"
#include "platform/messages.h"
#include "rules/new_keys.h"
#include "rules/row_checks.h"
#include "rules/text_limits.h"
#include "rules/transaction.h"
#include "store/sql.h"
#include "store/text.h"

namespace ta_vorlumine {

using ADODB::sql;
using platform::form;

replaceFolder::replaceFolder()
    : Text1(window, "Text1"),
      Label1(window, "Label1", "フォルダ名", &Text1),
      Command2(window, "Command2", "OK", platform::CommandButton::role::standard),
      Command3(window, "Command3", "ｷｬﾝｾﾙ") {
  window.body =
      platform::column({platform::fields({platform::row({Label1, Text1})}), platform::stretch(),
                        platform::row({platform::stretch(), Command2, Command3})});
  window.on_load = [this] { load(); };
  Command2.on_click = [this] { ok(); };
  Command3.on_click = [this] { window.unload(); };
}

void replaceFolder::load() {
  tried_key_ = 0;
  if (shared().mode() == edit_mode::rename_folder) Text1.set_text(shared().tmpNode.Text());
}

void replaceFolder::ok() {
  const std::string name = Text1.text();
  if (name.empty()) {
    platform::message("フォルダが必須です。");
    return Text1.set_focus();
  }
  if (ADODB::character_count(name) > longest_text) {
    return platform::message("タイトルが文字列長すぎます");
  }
  try {
    if (shared().mode() == edit_mode::new_folder) add_folder(name);
    if (shared().mode() == edit_mode::rename_folder) rename_folder(name);
  } catch (const vanished_row& gone) {
    platform::message(gone.what());
    form<replaceForm>().init_form();
  }
  window.unload();
}

// The row and the counter go in together, so that a second OK never meets the row of the first.
// Only where the answer to the first was lost may that row stand already.
void replaceFolder::add_folder(const std::string& name) {
  auto& browser = form<replaceForm>();
  static_cast<void>(browser.getfrom_seqno("replace"));
  in_transaction(browser.conn, [&] {
    hold_title_row(browser.conn, shared().selected_key());
    if (is_stored(tried_key_, name)) return;
    const row_key key = checked_key(next_title_key(browser.conn));
    browser.conn.Execute(
        sql("INSERT INTO replace(replace_no,p_replace_no,kind,title,replace_m_no) "
            "VALUES( <new key>,<basNodeKey> ,'F','<name>',0)",
            {key, browser.basNodeKey, name}));
    browser.update_seqno("replace");
    // Not before: a key that was refused is that of another program's folder, perhaps of this name.
    tried_key_ = key;
  });
  browser.atNode =
      browser.SSTree1.Nodes.AddChild(browser.basNodeKey, std::to_string(tried_key_), name, "0");
  show_as_row(browser.atNode);
  browser.show_as_folder(browser.atNode);
  browser.atNode.parent().Expanded(true);
  browser.SSTree1.move_keyboard(browser.atNode);
}

bool replaceFolder::is_stored(row_key key, const std::string& name) {
  const ADODB::Recordset found = shared().conn.Execute(
      sql("select replace_no from replace where replace_no=<key> and p_replace_no=<basNodeKey> "
          "and kind='F' and title='<name>'",
          {key, shared().basNodeKey, name}));
  return !found.eof();
}

void replaceFolder::rename_folder(const std::string& name) {
  auto& browser = form<replaceForm>();
  require_title_row(browser.conn, shared().selected_key());
  browser.SSTree1.Nodes.Item(browser.basNodeKey).Text(name);
  browser.conn.Execute(sql("UPDATE replace SET title='<name>' where replace_no= <basNodeKey>",
                           {name, browser.basNodeKey}));
}

}  // namespace ta_vorlumine
