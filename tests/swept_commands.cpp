#include "swept_commands.h"

#include <QTableView>
#include <QTest>

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

step drop(const std::string& source, const std::string& target) {
  return [=] { drag_node(source, target); };
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

step without_first_line(const std::string& then) {
  return [=] {
    if (grid_column(5).front() == "東") {
      click_cell(1, 5);
      press("Command3");
    }
    // A refused deletion leaves the line: once more.
    if (grid_column(5).front() != "東") press(then);
  };
}

std::string one(const std::string& table, const std::string& where) {
  return "select count(*) from " + table + " where " + where;
}
std::string none(const std::string& table, const std::string& where) {
  return "select 1 where not exists (select 1 from " + table + " where " + where + ")";
}

}  // namespace

std::vector<swept_command> swept_commands() {
  const step edit = at("敬称", "update");
  const auto leave = [](const std::string& title) { return fill("Text1", title, "exit"); };
  std::vector<swept_command> all = {
      {"new folder",
       "replaceFolder",
       one("replace", "title='新'"),
       {{"replaceForm", at("宛名", "addf")}, {"replaceFolder", fill("Text1", "新", "Command2")}}},
      {"rename folder",
       "replaceFolder",
       one("replace", "title='新'"),
       {{"replaceForm", at("宛名", "updatef")},
        {"replaceFolder", fill("Text1", "新", "Command2")}}},
      {"delete folder",
       "replaceForm",
       none("replace", "title='宛名'"),
       {{"replaceForm", at("宛名", "delf")}},
       true},
      {"new definition",
       "replaceForm",
       one("replace", "title='新'"),
       {{"replaceForm", at("宛名", "add")}, {"replace_create", leave("新")}}},
      {"edit definition",
       "replace_create",
       one("replace", "title='新'"),
       {{"replaceForm", edit}, {"replace_create", leave("新")}}},
      {"copy",
       "replaceForm",
       one("replace", "title='写し'"),
       {{"replaceForm", at("敬称", "copy")}, {"replace_create", leave("写し")}}},
      {"delete definition",
       "replaceForm",
       none("replace", "title='敬称'"),
       {{"replaceForm", at("敬称", "del")}},
       true},
      {"move",
       "replaceForm",
       one("replace", "title='空' and p_replace_no=3"),
       {{"replaceForm", drop("空", "宛名")}}},
  };
  const std::string condition = "東（部分一致）";
  const auto add = [&](const std::string& name, const std::string& goal, const std::string& node,
                       const std::string& button, const std::string& dialog,
                       const step& in_dialog) {
    all.push_back(
        {name,
         "replace_create",
         goal,
         {{"replaceForm", edit}, {"replace_create", at(node, button)}, {dialog, in_dialog}}});
  };
  add("new field", one("replace_m", "field_id='F3' and p_replace_m_no=11"), condition, "addr_set",
      "address_add", pick("取引開始日"));
  add("new value", one("replace_m", "replace_title='値'"), condition, "cond_val_set", "set_value",
      fill("title_txt", "値", "Command1"));
  add("change value", one("replace_m", "replace_title='値'"), "不明", "cond_val_set", "set_value",
      fill("title_txt", "値", "Command1"));
  add("new condition", one("replace_cond", "s_val='西'"), "氏名", "cond_set", "r_text_cond",
      line("西"));
  add("change condition", one("replace_cond", "s_val='西'"), condition, "cond_set", "r_text_cond",
      line("西"));
  add("empty condition", none("replace_cond", "s_val='東'"), condition, "cond_set", "r_text_cond",
      without_first_line("Command1"));
  add("first date condition", one("replace_cond", "d_f_val='2005/01/31'"), "取引開始日", "cond_set",
      "r_date_cond", line("2005/01/31"));
  add("first number condition", one("replace_cond", "n_f_val=5"), "年齢", "cond_set",
      "r_number_cond", line("5"));
  add("first yes/no condition", one("replace_cond", "b_val"), "会員", "cond_set", "r_yesno_cond",
      pick("はい"));
  for (const auto& [node, gone] : std::map<std::string, std::string>{{"氏名", "replace_m_no=10"},
                                                                     {condition, "replace_m_no=11"},
                                                                     {"不明", "replace_m_no=13"}}) {
    add("delete " + gone.substr(13), none("replace_m", "replace_no=1 and " + gone), node, "del_set",
        "", {});
    all.back().takes_rows_away = true;
  }
  // Fields of each kind stand in a definition of their own, as its top row.
  for (swept_command& command : all) {
    for (const auto& [dialog, title] : std::map<std::string, std::string>{
             {"r_date_cond", "日付"}, {"r_number_cond", "数値"}, {"r_yesno_cond", "二択"}}) {
      if (command.steps.contains(dialog)) command.steps["replaceForm"] = at(title, "update");
    }
    command.is_whole = command.name.find("condition") != std::string::npos;
  }
  return all;
}

}  // namespace harness
