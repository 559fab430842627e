#include "swept_commands.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTableView>
#include <QTest>

#include "harness.h"

namespace harness {
namespace {

using deed = std::function<void()>;

// A selection that could not be read leaves its buttons off: it is made again.
deed at(const std::string& node, const std::string& button) {
  return [=] {
    click_node(node);
    if (is_enabled(button)) press(button);
  };
}

deed fill(const std::string& box, const std::string& text, const std::string& button) {
  return [=] {
    type(box, text);
    press(button);
  };
}

deed pick(const std::string& entry) {
  return [=] {
    choose("Combo1", entry);
    press("Command1");
  };
}

deed drop(const std::string& source, const std::string& target) {
  return [=] { drag_node(source, target); };
}

void put(int column, const std::string& text) {
  auto& grid = *top_window().findChild<QTableView*>("fg");
  // A grid that has lost its rows gets one by a click.
  if (grid.model()->rowCount() == 0) QTest::mouseClick(grid.viewport(), Qt::LeftButton);
  grid.setFocus();
  grid.setCurrentIndex(grid.model()->index(0, column));
  QWidget* const focused = QApplication::focusWidget();
  // A message came up meanwhile: the next try fills the cell.
  if (focused == nullptr) return;
  QInputMethodEvent composed;
  composed.setCommitString(QString::fromStdString(text));
  const bool is_list = column % 2 == 0;
  is_list ? QTest::keyClicks(focused, text.c_str())
          : void(QApplication::sendEvent(focused, &composed));
  key(Qt::Key_Return);
}

deed line(const std::string& value) {
  return [=] {
    put(5, value);
    put(6, "1");
    press("Command1");
  };
}

deed without_first_line(const std::string& then) {
  return [=] {
    auto& grid = *top_window().findChild<QTableView*>("fg");
    if (grid.model()->index(0, 5).data().toString() == "東") {
      grid.setCurrentIndex(grid.model()->index(0, 5));
      press("Command3");
    }
    // A refused deletion leaves the line: once more.
    if (grid.model()->index(0, 5).data().toString() != "東") press(then);
  };
}

std::string one(const std::string& table, const std::string& where) {
  return "select count(*) from " + table + " where " + where;
}
std::string none(const std::string& table, const std::string& where) {
  return "select 1 where not exists (select 1 from " + table + " where " + where + ")";
}

}  // namespace

const std::vector<std::string> swept_rows = {
    "insert into field values('F1','氏名','T'),('F3','取引開始日','D'),('F6','年齢','N'),"
    "('F7','会員','B')",
    "insert into replace values(1,0,'C','敬称',' ',10),(2,0,'C','空',' ',21),"
    "(3,0,'F','宛名',null,0),(4,3,'F','会社',null,0),(5,4,'C','御中','',22),"
    "(30,0,'C','日付',' ',30),(31,0,'C','数値',' ',31),(32,0,'C','二択',' ',32)",
    "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) values"
    "(1,10,0,'F','F1'),(30,30,0,'F','F3'),(31,31,0,'F','F6'),(32,32,0,'F','F7')",
    "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
    "replace_cond_no) values(1,11,10,'C','0',1),(1,12,10,'C','1',null)",
    "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_title,"
    "replace_type,r_text) values(1,13,12,'R','不明','S','様'),(5,22,0,'R','御中','S','御中')",
    "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) values"
    "(1,1,1,'S',1,'東')",
    "update seqno set replace=32,replace_m=40,replace_cond=7",
};

std::vector<swept_command> swept_commands() {
  const deed edit = at("敬称", "update");
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
                       const deed& in_dialog) {
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
      if (command.deeds.contains(dialog)) command.deeds["replaceForm"] = at(title, "update");
    }
    command.is_whole = command.name.find("condition") != std::string::npos;
  }
  return all;
}

}  // namespace harness
