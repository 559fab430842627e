#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/row_checks.h"
#include "rules/text_limits.h"
#include "store/sql.h"
#include "store/text.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

bool is_field_name(const std::string& title) {
  ADODB::Recordset found = shared().conn.Execute(
      sql("select field_name from field where field_name = '<title>'", {title}));
  return !found.eof();
}

bool is_title_in_use(const std::string& title) {
  ADODB::Recordset found = shared().conn.Execute(
      sql("select title from replace where title = '<title>' and kind='C'", {title}));
  return !found.eof();
}

/// What is wrong with a title, empty if nothing is.
std::string objection(const std::string& title) {
  if (ADODB::character_count(title) > longest_text) return "タイトルが文字列長すぎます";
  if (is_field_name(title)) return "アドレス帳と同じ名称は設定できません。";
  if (shared().mode() != edit_mode::edit_definition && is_title_in_use(title)) {
    return "そのタイトルはすでに使用されています。";
  }
  return {};
}

}  // namespace

void replace_create::exit() {
  const std::string title = Text1.text();
  if (title.empty()) return exit_untitled();
  if (const std::string wrong = objection(title); !wrong.empty()) {
    platform::message(wrong);
    return Text1.set_focus();
  }
  if (Text2.text().empty()) Text2.set_text(" ");
  if (!definition_stands()) return window.unload();
  shared().conn.Execute(
      sql("UPDATE replace SET title='<title>',comment='<comment>' where replace_no= "
          "<up_replace_no>",
          {title, Text2.text(), up_replace_no}));
  window.unload();
}

void replace_create::exit_untitled() {
  // After a failure the tree may show less than there is.
  if (SSTree1.Nodes.Count() >= 2 || has_children(shared().conn, up_replace_no, 0)) {
    platform::message("タイトルを入力してください。");
    return Text1.set_focus();
  }
  shared().conn.Execute(
      sql("delete from replace where replace_no=<up_replace_no>", {up_replace_no}));
  window.unload();
}

// There is nothing left to edit once another program has deleted the definition: the user learns
// it, and the editor ends.
bool replace_create::definition_stands() {
  try {
    require_title_row(shared().conn, shared().f_replace_no);
    return true;
  } catch (const vanished_row& gone) {
    platform::message(gone.what());
    return false;
  }
}

}  // namespace ta_vorlumine
