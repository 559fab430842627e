#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QInputMethodEvent>
#include <QMessageBox>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "statement_faults.h"
#include "ta_vorlumine/replace_class.h"
#include "walks.h"

using namespace harness;
using rows = std::vector<std::string>;
using deed = std::function<void()>;

namespace {

/// What a user does for one command: in each window the next deed towards the goal, once more if it
/// was refused.
struct command {
  std::string name;
  std::string window;  ///< the one whose deed is the command: what leads there is not refused
  std::string goal;    ///< a select that gives 1 once the command has been done, and 0 before
  std::map<std::string, deed> deeds;
  bool takes_rows_away = false;
  bool is_whole = false;  ///< a condition dialog
};

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
    press(then);
  };
}

std::string one(const std::string& table, const std::string& where) {
  return "select count(*) from " + table + " where " + where;
}
std::string none(const std::string& table, const std::string& where) {
  return "select count(*)=0 from " + table + " where " + where;
}

std::vector<command> commands() {
  const deed edit = at("敬称", "update");
  const auto leave = [](const std::string& title) { return fill("Text1", title, "exit"); };
  std::vector<command> all = {
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
  for (command& command : all) {
    for (const auto& [dialog, title] : std::map<std::string, std::string>{
             {"r_date_cond", "日付"}, {"r_number_cond", "数値"}, {"r_yesno_cond", "二択"}}) {
      if (command.deeds.contains(dialog)) command.deeds["replaceForm"] = at(title, "update");
    }
    command.is_whole = command.name.find("condition") != std::string::npos;
  }
  return all;
}

/// A command played in a store of its own until its goal is reached, one statement refused.
class trial {
 public:
  trial() {
    store_.run_all({
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
    });
    before = content();
    faults_.emplace(store_);
  }

  void play(const command& command, int number) {
    QTimer clock;
    const auto look = [&] { tick(command, number); };
    QObject::connect(&clock, &QTimer::timeout, &clock, look, Qt::QueuedConnection);
    clock.start(0);
    ta_vorlumine::replaceClass editor;
    editor.CONNECT_STRING = store_.connect_string();
    editor.replace_show();
    refused = faults_->refused();
    was_reached = number <= faults_->seen();
    faults_.reset();
    after = content();
    shape = shape_faults(store_.connect_string());
    // A counter that stays behind heals at the next command.
    std::erase_if(shape, [](const std::string& fault) { return fault.starts_with("seqno"); });
  }

  // What is to be judged.
  rows before, after_refusal, after, shape;
  std::string refused;
  bool was_reached = false;  ///< the command has so many statements
  bool was_told = false;

 private:
  /// All rows but the counters.
  rows content() {
    rows all;
    for (const char* table : {"replace", "replace_m", "replace_cond"}) {
      for (const std::string& row : store_.rows(std::string("select * from ") + table))
        all.push_back(std::string(table) + " " + row);
    }
    // A new definition stands, without a title, before its editor opens.
    std::erase_if(all, [](const std::string& row) { return row.ends_with("|3|C| |null|41"); });
    std::ranges::sort(all);
    return all;
  }

  void tick(const command& command, int number) {
    QWidget* top = QApplication::activeModalWidget();
    if (!top || !top->isVisible() || (!at_work_.empty() && at_work_.back() == top)) return;
    if (QApplication::activeWindow() != top) return top->activateWindow();
    at_work_.push_back(top);
    step(*top, command, number);
    at_work_.pop_back();
  }

  void step(QWidget& top, const command& command, int number) {
    const std::string window = top.objectName().toStdString();
    if (++steps_ > 60) give_up(command.name + ", statement " + std::to_string(number));
    if (auto* box = qobject_cast<QMessageBox*>(&top)) {
      was_told = was_told || statement_faults::tells_refusal(box->text().toStdString());
      return box->button(QMessageBox::Ok)->click();
    }
    if (!faults_->refused().empty() && after_refusal.empty()) after_refusal = content();
    if (has_left_ || store_.value(command.goal) == "1") return leave(window);
    if (window == command.window && !is_armed_) faults_->refuse(number);
    is_armed_ = is_armed_ || window == command.window;
    try {
      command.deeds.at(window)();
    } catch (const std::runtime_error& missing) {
      // What a deletion has taken away already is not there for a second try.
      if (!command.takes_rows_away) give_up(command.name + ": " + missing.what());
      has_left_ = true;
      leave(window);
    }
  }

  // Modal loops can't be left in good order.
  [[noreturn]] static void give_up(const std::string& what) {
    std::fprintf(stderr, "never succeeds: %s\n", what.c_str());
    std::_Exit(1);
  }

  static void leave(const std::string& window) {
    if (window == "replaceForm") return press("close");
    if (window == "replace_create") return press("exit");
    press(window == "replaceFolder" ? "Command3" : "Command2");
  }

  test_store store_;
  std::optional<statement_faults> faults_;
  std::vector<QWidget*> at_work_;
  int steps_ = 0;
  bool is_armed_ = false;
  bool has_left_ = false;
};

bool holds_all(const rows& some, const rows& all) {
  return std::ranges::includes(all, some);
}

void judge(const command& command, const trial& trial, const rows& wanted) {
  // The selection goes on past what it cannot read.
  const bool may_be_silent = trial.refused.starts_with("select KIND,comment");
  EXPECT_TRUE(trial.was_told || may_be_silent);
  rows kept;
  std::ranges::set_intersection(trial.before, wanted, std::back_inserter(kept));
  if (!trial.after_refusal.empty()) {
    EXPECT_TRUE(holds_all(kept, trial.after_refusal));
    EXPECT_LE(trial.after_refusal.size(), std::max(trial.before.size(), wanted.size()));
  }
  if (command.is_whole) {
    const bool is_absent = trial.after_refusal.empty() || trial.after_refusal == trial.before;
    EXPECT_TRUE(is_absent || trial.after_refusal == wanted);
  }
  if (command.takes_rows_away) {
    EXPECT_TRUE(holds_all(wanted, trial.after));
    return;
  }
  // Numbers that were drawn for the refused try may be gone.
  EXPECT_EQ(trial.after.size(), wanted.size());
  EXPECT_EQ(trial.shape, rows{});
}

}  // namespace

class SqliteFaultSweep : public testing::TestWithParam<command> {};

TEST_P(SqliteFaultSweep, EachStatementRefusedInTurn) {
  const command& command = GetParam();
  trial untroubled;
  untroubled.play(command, 0);
  int tried = 0;
  for (int number = 1;; ++number) {
    trial trial;
    trial.play(command, number);
    if (!trial.was_reached) break;
    if (trial.refused.empty()) continue;
    SCOPED_TRACE(std::to_string(number) + ": " + trial.refused);
    ++tried;
    judge(command, trial, untroubled.after);
  }
  EXPECT_GT(tried, 0);
  std::printf("%s: %d statements refused\n", command.name.c_str(), tried);
}

INSTANTIATE_TEST_SUITE_P(Commands, SqliteFaultSweep, testing::ValuesIn(commands()),
                         [](const auto& test) {
                           std::string name = test.param.name;
                           std::erase_if(name, [](char c) { return !std::isalnum(c) && c != ' '; });
                           std::ranges::replace(name, ' ', '_');
                           return name;
                         });
