#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "platform/messages.h"
#include "rules/new_keys.h"
#include "rules/selected_node.h"
#include "store/sql.h"
#include "values/set_value.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;
using platform::form;

constexpr std::array<const char*, value_kinds> type_letters{"S", "T", "I", "M", "F"};
constexpr std::array<const char*, 4> columns{"r_text", "r_text_filename", "r_image_filename",
                                             "r_mmedia_filename"};

void write(const value_entry& value, std::int64_t last_number) {
  auto& shared = form<replaceForm>();
  if (form<replace_create>().r_value == 1) {
    require_selected_node();
    shared.conn.Execute(update_statement(value, shared.basNodeKey, shared.f_replace_no));
    return;
  }
  require_free_place();
  insert_with_new_key(shared, "replace_m", last_number, [&](std::int16_t key) {
    shared.conn.Execute(insert_statement(value, key, shared.basNodeKey, shared.f_replace_no));
  });
  shared.update_seqno("replace_m");
}

}  // namespace

void set_value::load() {
  name_controls();
  fill_fields();
  auto& shared = form<replaceForm>();
  shared.basRS = shared.conn.Execute(
      sql("select * from replace_m where replace_no=<f_replace_no> and replace_m_no=<basNodeKey> "
          "and use_type='R'",
          {shared.f_replace_no, shared.basNodeKey}));
  form<replace_create>().r_value = shared.basRS.eof() ? 0 : 1;
  if (shared.basRS.eof()) return text_option.select();
  show_value(shared.basRS.Fields());
}

void set_value::fill_fields() {
  Combo1.Clear();
  auto& rows = form<replaceForm>().basRS;
  rows = form<replaceForm>().conn.Execute("select field_id,field_name from field");
  for (; !rows.eof(); rows.MoveNext()) Combo1.AddItem(rows.Fields().Item(1).Value().text());
  rows.Close();
}

// The option goes first: selecting it empties the inputs. A type that no option stands for leaves
// the group without a choice.
void set_value::show_value(const ADODB::Fields& row) {
  const std::string type = row.Item("replace_type").Value().text();
  const std::string title = row.Item("replace_title").Value().text();
  for (std::size_t kind = 0; kind < type_letters.size(); ++kind) {
    if (type != type_letters[kind]) continue;
    Option1[kind]->select();
    if (kind == field_value) {
      Combo1.select(title);
      Combo1.set_focus();
    } else {
      boxes_[kind]->set_text(row.Item(columns[kind]).Value().text());
    }
  }
  title_txt.set_text(title);
}

// The counter is read in any case: that a store has none is told even to a user who only changes a
// value.
void set_value::ok() {
  const std::string title = title_txt.text();
  if (title.empty()) {
    platform::message("タイトルを入力してください。");
    title_txt.set_enabled(true);
    return title_txt.set_focus();
  }
  const std::int64_t last_number = form<replaceForm>().getfrom_seqno("replace_m");
  const auto kind = selected_kind();
  if (!kind) return platform::message("置換値が必須です。");
  if (!has_content(*kind)) return;
  const value_entry value{*kind, title, content(*kind, title)};
  try {
    write(value, last_number);
  } catch (const outdated_view& outdated) {
    platform::message(outdated.what());
  }
  window.unload();
}

// A new value may be left empty; one that is changed may not become so.
bool set_value::has_content(value_kind kind) {
  if (kind == field_value) {
    if (!Combo1.text().empty()) return true;
    platform::message("フィールドを選択してください。");
    return false;
  }
  if (form<replace_create>().r_value != 1 || !boxes_[kind]->text().empty()) return true;
  platform::message("置換値が必須です。");
  boxes_[kind]->set_focus();
  return false;
}

// The field is looked up by the title, which a user may have changed: no field then.
std::string set_value::content(value_kind kind, const std::string& title) {
  if (kind != field_value) return boxes_[kind]->text();
  auto& rows = form<replaceForm>().basRS;
  rows = form<replaceForm>().conn.Execute(
      sql("select field_id from field where field_name='<title_txt>'", {title}));
  return rows.eof() ? std::string() : rows.Fields().Item(0).Value().text();
}

}  // namespace ta_vorlumine
