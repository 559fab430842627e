#include <QTest>

#include "fault_trial.h"
#include "user.h"

namespace harness {
namespace {

using step = std::function<void()>;

// A selection that could not be read leaves its buttons off: it is made again.
step at(const std::string& node, const std::string& button) {
  return [=] {
    click_node(node);
    if (is_enabled(button)) press(button);
  };
}

step fill(const std::string& box, const std::string& text, const std::string& button) {
  return [=] {
    type(box, text);
    press(button);
  };
}

step pick(const std::string& entry) {
  return [=] {
    choose("Combo1", entry);
    press("Command1");
  };
}

step line(const std::string& value) {
  return [=] {
    // A grid that has lost its rows gets one by a click.
    if (grid().model()->rowCount() == 0) QTest::mouseClick(grid().viewport(), Qt::LeftButton);
    fill_cell(1, 5, value);
    fill_cell(1, 6, "1");
    press("Command1");
  };
}

void remove_first_line() {
  if (grid_column(5).front() == "東") {
    click_cell(1, 5);
    press("Command3");
  }
  // A refused deletion leaves the line: once more.
  if (grid_column(5).front() != "東") press("Command1");
}

std::string one(const std::string& table, const std::string& where) {
  return "select count(*) from " + table + " where " + where;
}
std::string none(const std::string& table, const std::string& where) {
  return "select 1 where not exists (select 1 from " + table + " where " + where + ")";
}

/// An emptied condition goes with its branch.
bool takes_rows_away(const std::string& name) {
  return name.starts_with("delete") || name == "empty condition";
}

swept_command in_browser(const std::string& name, const std::string& goal, const step& in_tree,
                         const std::string& dialog = "none", const step& in_dialog = {}) {
  return {.name = name,
          .window = dialog == "replaceFolder" ? dialog : "replaceForm",
          .goal = goal,
          .steps = {{"replaceForm", in_tree}, {dialog, in_dialog}},
          .takes_rows_away = takes_rows_away(name)};
}

swept_command in_editor(const std::string& name, const std::string& goal,
                        const std::string& definition, const step& in_tree,
                        const std::string& dialog = "none", const step& in_dialog = {}) {
  return {.name = name,
          .window = "replace_create",
          .goal = goal,
          .steps = {{"replaceForm", at(definition, "update")},
                    {"replace_create", in_tree},
                    {dialog, in_dialog}},
          .takes_rows_away = takes_rows_away(name)};
}

}  // namespace

std::vector<swept_command> swept_commands() {
  const std::string renamed = one("replace", "title='新'");
  const std::string valued = one("replace_m", "replace_title='値'");
  const std::string condition = "東（部分一致）";
  const step name_folder = fill("Text1", "新", "Command2");
  const step name_value = fill("title_txt", "値", "Command1");
  const step leave = fill("Text1", "新", "exit");
  return {
      in_browser("new folder", renamed, at("宛名", "addf"), "replaceFolder", name_folder),
      in_browser("rename folder", renamed, at("宛名", "updatef"), "replaceFolder", name_folder),
      in_browser("delete folder", none("replace", "title='宛名'"), at("宛名", "delf")),
      in_browser("new definition", renamed, at("宛名", "add"), "replace_create", leave),
      in_browser("edit definition", renamed, at("敬称", "update"), "replace_create", leave),
      in_browser("copy", renamed, at("敬称", "copy"), "replace_create", leave),
      in_browser("delete definition", none("replace", "title='敬称'"), at("敬称", "del")),
      in_browser("move", one("replace", "title='空' and p_replace_no=3"),
                 [] { drag_node("空", "宛名"); }),
      in_editor("new field", one("replace_m", "field_id='F3' and p_replace_m_no=11"), "敬称",
                at(condition, "addr_set"), "address_add", pick("取引開始日")),
      in_editor("new value", valued, "敬称", at(condition, "cond_val_set"), "set_value",
                name_value),
      in_editor("change value", valued, "敬称", at("不明", "cond_val_set"), "set_value",
                name_value),
      in_editor("new condition", one("replace_cond", "s_val='西'"), "敬称", at("氏名", "cond_set"),
                "r_text_cond", line("西")),
      in_editor("change condition", one("replace_cond", "s_val='西'"), "敬称",
                at(condition, "cond_set"), "r_text_cond", line("西")),
      in_editor("empty condition", none("replace_cond", "s_val='東'"), "敬称",
                at(condition, "cond_set"), "r_text_cond", remove_first_line),
      in_editor("first date condition", one("replace_cond", "d_f_val='2005/01/31'"), "日付",
                at("取引開始日", "cond_set"), "r_date_cond", line("2005/01/31")),
      in_editor("first number condition", one("replace_cond", "n_f_val=5"), "数値",
                at("年齢", "cond_set"), "r_number_cond", line("5")),
      in_editor("first yes/no condition", one("replace_cond", "b_val"), "二択",
                at("会員", "cond_set"), "r_yesno_cond", pick("はい")),
      in_editor("delete field", none("replace_m", "replace_no=1"), "敬称", at("氏名", "del_set")),
      in_editor("delete branch", none("replace_m", "replace_no=1 and replace_m_no=11"), "敬称",
                at(condition, "del_set")),
      in_editor("delete value", none("replace_m", "replace_no=1 and replace_m_no=13"), "敬称",
                at("不明", "del_set"))};
}

bool is_reached(const swept_command& command, ADODB::Connection& conn) {
  const ADODB::Recordset found = conn.Execute(command.goal);
  return !found.eof() && found.Fields().Item(0).Value().number() > 0;
}

}  // namespace harness
