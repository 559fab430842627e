#include <algorithm>

#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/failure_words.h"
#include "rules/record_values.h"
#include "rules/row_checks.h"
#include "rules/text_limits.h"
#include "rules/transaction.h"
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

std::string stored_title() {
  const ADODB::Recordset row = shared().conn.Execute(
      sql("select title from replace where replace_no=<up_replace_no>", {shared().f_replace_no}));
  return row.eof() ? std::string() : row.Fields().Item(0).Value().text();
}

/// By another definition: this one may bear the title already, where the answer to an earlier exit
/// was lost.
bool is_title_in_use(const std::string& title) {
  const ADODB::Recordset found = shared().conn.Execute(
      sql("select title from replace where title = '<title>' and kind='C'", {title}));
  return found.RecordCount() > (stored_title() == title ? 1 : 0);
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
  try {
    const bool may_close = Text1.text().empty() ? discard_untitled() : store_checked_title();
    if (!may_close) return;
  } catch (const vanished_row& gone) {
    platform::message(gone.what());  // there is nothing left to edit
  } catch (const ADODB::Error& failure) {
    if (!may_leave_unsaved(failure)) return;
  }
  window.unload();
}

/// False if the title is refused, or the user would rather not write over another program's change.
bool replace_create::store_checked_title() {
  if (const std::string wrong = objection(Text1.text()); !wrong.empty()) {
    platform::message(wrong);
    Text1.set_focus();
    return false;
  }
  const title_fields loaded = loaded_.stored;
  while (!store_title()) {
    if (!platform::ask("タイトルまたは備考が他のプログラムによって変更されています。"
                       "上書きしてもよろしいですか")) {
      loaded_.stored = loaded;  // the next try asks again
      return false;
    }
  }
  return true;
}

/// A store that stays out of reach or takes no more must not keep the user in the editor.
bool replace_create::may_leave_unsaved(const ADODB::Error& failure) {
  using enum ADODB::failure_kind;
  const auto reasons = {busy, lost_connection, read_only, full};
  if (std::ranges::find(reasons, failure.kind()) == reasons.end()) throw failure;
  return platform::ask(
      "タイトルと備考を保存できませんでした。保存せずに閉じてもよろしいですか\n\n" +
      words_for(failure));
}

/// False, and nothing is written, if the user has typed and another program has changed the title
/// or the remark meanwhile; the next call writes over that change. Where the user has typed
/// nothing, another program's change stands. A field that was not typed into is written back just
/// as it was stored, also if it holds bytes that are no text.
bool replace_create::store_title() {
  auto& state = shared();
  const bool typed = Text1.text() != loaded_.shown_title || Text2.text() != loaded_.shown_remark;
  const title_fields wanted = wanted_fields();
  if (!typed && wanted == loaded_.stored) {
    require_title_row(state.conn, up_replace_no);
    return true;
  }
  bool done = true;
  in_transaction(state.conn, [&] {
    hold_title_row(state.conn, up_replace_no);
    const title_fields stored = stored_fields();
    const bool changed = !(stored == loaded_.stored) && !(stored == wanted);
    done = !changed || !typed;
    if (!done) loaded_.stored = stored;
    if (changed) return;
    state.conn.Execute(
        sql("UPDATE replace SET title='<title>',comment='<comment>' where replace_no= "
            "<up_replace_no>",
            {wanted.title, wanted.remark, up_replace_no}));
  });
  return done;
}

/// An empty remark is stored as one blank.
replace_create::title_fields replace_create::wanted_fields() {
  const std::string title = Text1.text();
  const std::string remark = Text2.text();
  title_fields wanted = loaded_.stored;
  if (title != loaded_.shown_title) wanted.title = title;
  if (remark != loaded_.shown_remark) wanted.remark = remark;
  if (wanted.remark.empty()) wanted.remark = " ";
  return wanted;
}

replace_create::title_fields replace_create::stored_fields() {
  const ADODB::Recordset row = shared().conn.Execute(sql(
      "select title,comment from replace where replace_no=<basNodeKey>", {shared().f_replace_no}));
  if (row.eof()) throw vanished_row();
  return {column(row, "title").text(), column(row, "comment").text()};
}

/// Deletes a definition that has neither title nor rules. False if it has rules, which need a
/// title.
bool replace_create::discard_untitled() {
  auto& state = shared();
  // After a failure the tree may show less than there is.
  bool has_rules = SSTree1.Nodes.Count() >= 2;
  if (!has_rules) {
    in_transaction(state.conn, [&] {
      // Holds the definition as hold_title_row() would, but one that is gone already is no failure.
      state.conn.Execute(
          sql("update replace set kind=kind where replace_no=<up_replace_no>", {up_replace_no}));
      has_rules = has_children(state.conn, up_replace_no, 0);
      if (has_rules) return;
      state.conn.Execute(
          sql("delete from replace where replace_no=<up_replace_no>", {up_replace_no}));
    });
  }
  if (!has_rules) return true;
  platform::message("タイトルを入力してください。");
  Text1.set_focus();
  return false;
}

}  // namespace ta_vorlumine
