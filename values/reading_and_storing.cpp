#include "platform/messages.h"
#include "rules/field_list.h"
#include "rules/new_keys.h"
#include "rules/row_checks.h"
#include "rules/shared_state.h"
#include "rules/transaction.h"
#include "store/key_counters.h"
#include "store/sql.h"
#include "values/set_value.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

constexpr std::array<const char*, value_kinds> type_letters{"S", "T", "I", "M", "F"};
constexpr std::array<const char*, 4> columns{"r_text", "r_text_filename", "r_image_filename",
                                             "r_mmedia_filename"};

void write(const value_entry& value) {
  auto& state = shared();
  hold_title_row(state.conn, state.f_replace_no);
  if (state.r_value == 1) {
    require_rule_row(state.conn, state.f_replace_no, state.selected_key());
    state.conn.Execute(update_statement(value, state.basNodeKey, state.f_replace_no));
    return;
  }
  require_empty_branch(state.conn, state.f_replace_no, state.selected_key());
  const std::int16_t key = checked_key(next_rule_key(state.conn, state.f_replace_no));
  state.conn.ExecuteAll(
      std::array{insert_statement(value, key, state.basNodeKey, state.f_replace_no),
                 ADODB::advance_of("replace_m")});
}

}  // namespace

void set_value::load() {
  name_controls();
  fill_field_list(Combo1);
  auto& state = shared();
  state.basRS = state.conn.Execute(
      sql("select * from replace_m where replace_no=<f_replace_no> and replace_m_no=<basNodeKey> "
          "and use_type='R'",
          {state.f_replace_no, state.basNodeKey}));
  state.r_value = state.basRS.eof() ? 0 : 1;
  if (state.basRS.eof()) return text_option.select();
  show_value(state.basRS.Fields());
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
  static_cast<void>(getfrom_seqno(shared().conn, "replace_m"));
  const auto kind = selected_kind();
  if (!kind) return platform::message("置換値が必須です。");
  if (!has_content(*kind)) return;
  const value_entry value{*kind, title, content(*kind, title)};
  try {
    in_transaction(shared().conn, [&] { write(value); });
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
  if (shared().r_value != 1 || !boxes_[kind]->text().empty()) return true;
  platform::message("置換値が必須です。");
  boxes_[kind]->set_focus();
  return false;
}

// The field is looked up by the title, which a user may have changed: no field then.
std::string set_value::content(value_kind kind, const std::string& title) {
  if (kind != field_value) return boxes_[kind]->text();
  auto& rows = shared().basRS;
  rows = shared().conn.Execute(
      sql("select field_id from field where field_name='<title_txt>'", {title}));
  return rows.eof() ? std::string() : rows.Fields().Item(0).Value().text();
}

}  // namespace ta_vorlumine
