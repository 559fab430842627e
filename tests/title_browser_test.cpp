#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <set>

#include "common_rules.h"
#include "platform/hint.h"
#include "rules/failure_words.h"
#include "store/error.h"
#include "window_player.h"

using namespace harness;

namespace {

class TitleBrowser : public common_rules {
 protected:
  rows titles() {
    return store.rows("select replace_no,p_replace_no,kind,title from replace order by 1");
  }
};

const std::string of_folder = "addf updatef delf add close";
const std::string of_definition = "update copy del close";
const std::string sure = "削除してもよろしいですか";

TEST_F(TitleBrowser, ShowsFoldersAndDefinitionsInTheOrderOfTheirKeys) {
  store.run(
      "insert into replace values(40,3,'C',null,null,3),(41,3,'C',' ',null,3),"
      "(42,99,'C','親なし',null,3),(43,0,'X','別の種類',null,3)");
  browse(store, [] {
    EXPECT_EQ(tree_lines(),
              (rows{"条件設定", "  敬称", "  空", "  宛名", "    会社", "      御中", "    NULL",
                    "     ", "  日付", "  数値", "  二択", "  新規", "  別の種類"}));
    EXPECT_EQ(enabled_buttons(), "close");
    EXPECT_EQ(text_of("addf") + text_of("copy") + text_of("close"), "作成複写閉じる");
    EXPECT_EQ(selected_node(), "");
    click_node("別の種類");
    EXPECT_EQ(enabled_buttons(), "close");
  });
}

TEST_F(TitleBrowser, PicturesTellWhatTheValuesOfADefinitionAre) {
  const auto add_value = [this](int definition, int key, const char* type) {
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_type)"
        " values(" +
        std::to_string(definition) + "," + std::to_string(key) + ",0,'R','" + type + "')");
  };
  for (const char* type : {"S", "T", "F"}) add_value(2, type[0], type);
  for (const int key : {51, 52}) add_value(30, key, "I");
  for (const int key : {51, 52}) add_value(31, key, "M");
  add_value(32, 51, "I");
  add_value(32, 52, "M");
  add_value(33, 51, "S");
  add_value(33, 52, "Z");
  browse(store, [] {
    EXPECT_EQ(pictures(), (rows{"root", "cond1", "cond1", "open", "open", "cond1", "cond2", "cond3",
                                "cond", "cond"}));
    EXPECT_EQ(node("条件設定").data(Qt::ForegroundRole), QColor(200, 160, 50));
    EXPECT_EQ(node("敬称").data(Qt::ForegroundRole), QColor(0, 0, 255));
    tree().collapse(node("会社"));
    EXPECT_EQ(pictures()[4], "close");
    EXPECT_EQ(kinds(), (rows{"", "置換定義", "置換定義", "フォルダ", "フォルダ", "置換定義",
                             "置換定義", "置換定義", "置換定義", "置換定義"}));
  });
  store.run("delete from replace_m where replace_no=2");
  browse(store, [] { EXPECT_EQ(pictures()[2], "cond2"); });  // no values, as if all were images
}

TEST_F(TitleBrowser, SelectionAllowsWhatTheNodeTakesAndShowsItsRemark) {
  browse(store, [] {
    EXPECT_EQ(top_window().minimumSize(), top_window().maximumSize());
    EXPECT_GT(control("add").x() - control("delf").x(),
              control("delf").x() - control("updatef").x())
        << "a line between the groups";
    const QPoint corner = control("close").mapTo(&top_window(), QPoint(-1, -1));
    const auto ring = [&] { return top_window().grab({corner, QSize(20, 1)}).toImage(); };
    const QImage without = ring();
    control("close").setFocus();
    EXPECT_NE(ring(), without) << "where the keyboard is";
    click_node("条件設定");
    EXPECT_EQ(enabled_buttons(), "addf add close");
    EXPECT_EQ(text_of("Label1"), "");
    EXPECT_EQ(menu(), "作成 追加\tInsert");
    click_node("宛名");
    EXPECT_EQ(enabled_buttons(), of_folder);
    EXPECT_EQ(menu(), "作成 修正\tF2 削除\tDelete 追加\tInsert 移動する項目にする");
    key(Qt::Key_Delete);
    question(sure, false);
    EXPECT_EQ(menu(), "移動する項目にする") << "the buttons are off";
    click_node("御中");
    EXPECT_EQ(menu(), "修正\tF2 複写 削除\tDelete 移動する項目にする");
    EXPECT_EQ(enabled_buttons(), of_definition);
    EXPECT_EQ(text_of("Label1"), "社'名");
    click_node("会社");
    EXPECT_EQ(enabled_buttons(), of_folder);
    click_node("条件設定");
    EXPECT_EQ(enabled_buttons(), "addf add close");
    click_node("敬称");
    for (const auto& [answer, node] : {std::pair{"del", "敬称"}, std::pair{"delf", "宛名"}}) {
      click_node(node);
      press(answer);
      question(sure, false);
      EXPECT_EQ(enabled_buttons(), "close");
    }
    click_node("宛名");  // the same node again
    const QPoint foot(20, tree().viewport()->height() - 2);
    act([&] { QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, foot); });
    EXPECT_EQ(enabled_buttons(), of_folder);
    EXPECT_EQ(selected_node(), "宛名");
  });
  EXPECT_EQ(titles().size(), 9U);
}

TEST_F(TitleBrowser, ToldToWhoDoesNotSeeItOrPointsAtIt) {
  const std::string remark(200, 'x');
  store.run("update replace set comment='" + remark + "' where title='御中'");
  browse(store, [&] {
    QAccessibleInterface& button = *QAccessible::queryAccessibleInterface(&control("addf"));
    EXPECT_EQ(button.text(QAccessible::Accelerator), "Alt+1");
    EXPECT_EQ(button.text(QAccessible::Description), "フォルダの作成");
    EXPECT_EQ(control("addf").toolTip(), "フォルダの作成 (Alt+1)");
    EXPECT_EQ(
        button.actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()),
        QStringList("Alt+1"));
    click_node("御中");
    QWidget& label = control("Label1");
    QHelpEvent pointing(QEvent::ToolTip, {}, label.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&label, &pointing);
    EXPECT_EQ(QToolTip::text(), platform::hint(remark.c_str()));
    const auto has_menu = [](QContextMenuEvent::Reason why, const std::string& at) {
      bool was_open = false;
      act([&] {
        const QPoint place = tree().visualRect(node(at)).center();
        QContextMenuEvent wanted(why, place, tree().viewport()->mapToGlobal(place));
        QApplication::sendEvent(tree().viewport(), &wanted);
        QWidget* menu = QApplication::activePopupWidget();
        was_open = menu != nullptr;
        if (menu) menu->close();
      });
      return was_open;
    };
    EXPECT_TRUE(has_menu(QContextMenuEvent::Mouse, "御中"));
    EXPECT_FALSE(has_menu(QContextMenuEvent::Mouse, "敬称")) << "its press has selected nothing";
    EXPECT_TRUE(has_menu(QContextMenuEvent::Keyboard, "敬称")) << "of the selected node";
  });
}

TEST_F(TitleBrowser, ANodeThatCantBeReadGetsNoButtonsOfTheOneBefore) {
  browse(store, [this] {
    click_node("宛名");
    store.run("alter table replace rename to away");
    click_node("敬称");
    EXPECT_EQ(enabled_buttons(), "close");
    store.run("alter table away rename to replace");
    click_node("敬称");
    EXPECT_EQ(enabled_buttons(), of_definition);
    store.run("delete from replace where replace_no=3");  // by another program
    click_node("宛名");
    message(gone);
    EXPECT_EQ(enabled_buttons(), "close");
    EXPECT_EQ(tree_lines().size(), 7U);
  });
}

TEST_F(TitleBrowser, ARefusedLevelIsToldAndCostsThatLevelAlone) {
  store.run_all({"delete from replace where replace_no in (1,2)",
                 "alter table replace_m rename to replace_n"});
  const std::string refusal = store.refusal_of("select * from replace_m");
  browse(store, [&] {
    message(refusal);
    message(refusal);
    EXPECT_EQ(tree_lines(), (rows{"条件設定", "  宛名", "    会社", "      御中", "  日付"}));
  });
}

TEST_F(TitleBrowser, OpensADefinitionByDoubleClickOrEnterAndAFolderNot) {
  browse(store, [] {
    double_click_node(node("御中"));
    in("replace_create");
    EXPECT_EQ(text_of("Text1"), "御中");
    press("exit");
    in("replaceForm");
    EXPECT_EQ(tree().indexAt(QPoint(1, 1)), node("条件設定"));
    EXPECT_EQ(selected_node(), "");
    EXPECT_EQ(enabled_buttons(), "close");
    click_node("新規");
    key(Qt::Key_Return);
    in("replace_create");
    EXPECT_EQ(text_of("Text1"), "新規");
    press("exit");
    click_node("宛名");
    key(Qt::Key_Enter);
    double_click_node(node("宛名"));
    in("replaceForm");
  });
}

TEST_F(TitleBrowser, MakesAndRenamesFolders) {
  const std::string longest = std::string(97, 'x') + "'😀漢";
  browse(store, [&] {
    click_node("条件設定");
    press("addf");
    in("replaceFolder");
    EXPECT_EQ(top_window().windowTitle(), "置換フォルダの作成");
    EXPECT_EQ(focused_control(), "Text1");
    const auto place = [](const char* name) { return control(name).geometry().center(); };
    EXPECT_LT(place("Label1").x(), place("Text1").x());
    EXPECT_LT(control("Label1").width(), control("Text1").width());
    EXPECT_EQ(place("Command2").y(), place("Command3").y());
    EXPECT_LT(place("Text1").y(), place("Command2").y());
    press("Command2");
    message("フォルダが必須です。");
    EXPECT_EQ(focused_control(), "Text1");
    type("Text1", longest + "x");
    press("Command2");
    message("タイトルが文字列長すぎます");
    type("Text1", longest);
    press("Command2");
    in("replaceForm");
    EXPECT_EQ(enabled_buttons(), "close");
    EXPECT_EQ(tree_lines().back(), "  " + longest);
    EXPECT_EQ(pictures().back(), "close");
    click_node("宛名");
    press("updatef");
    in("replaceFolder");
    EXPECT_EQ(top_window().windowTitle(), "置換フォルダの修正");
    EXPECT_EQ(text_of("Text1"), "宛名");
    type("Text1", "封筒");
    press("Command3");
    EXPECT_EQ(enabled_buttons(), "close");
    click_node("宛名");
    press("updatef");
    type("Text1", "葉'書");
    press("Command2");
    EXPECT_EQ(tree_lines()[3], "  葉'書");
    EXPECT_EQ(enabled_buttons(), "close");
    click_node("会社");
    act([] {
      QTest::keyClick(&tree(), Qt::Key_2, Qt::AltModifier);  // 修正
      QCoreApplication::postEvent(&tree(), new QKeyEvent(QEvent::KeyPress, Qt::Key_Home, {}));
      QTest::qWait(200);
    });
    in("replaceFolder");
    EXPECT_EQ(text_of("Text1"), "会社") << "the key behind it came too late to choose another";
    press("Command3");
    click_node("会社");
    tree().collapse(node("会社"));
    act([] {  // as a screen reader presses them
      for (const char* name : {"addf", "delf"}) {
        QAccessibleInterface* button = QAccessible::queryAccessibleInterface(&control(name));
        button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
      }
      QTest::qWait(300);  // the toolkit clicks them a moment later, each on its own
    });
    in("replaceFolder");
    EXPECT_EQ(text_of("Text1"), "");
    type("Text1", "下");
    press("Command2");
    EXPECT_TRUE(tree().isExpanded(node("会社")));
    EXPECT_EQ(tree_lines()[6], "      下");
  });
  EXPECT_EQ(store.rows("select * from replace where replace_no>33 or replace_no=3 order by 1"),
            (rows{"3|0|F|葉'書|null|0", "34|0|F|" + longest + "|null|0", "35|4|F|下|null|0"}));
  EXPECT_EQ(counters(), "35|40|7");
}

TEST_F(TitleBrowser, DeletesAFolderWithAllBelowItAndNothingElse) {
  store.run_all({"insert into replace_cond(replace_no,replace_cond_no,sno) values(5,1,1)",
                 "insert into replace values(50,1,'C','定義の下',null,50)"});
  browse(store, [] {
    click_node("宛名");
    press("delf");
    question(sure, true);
    EXPECT_EQ(tree_lines().size(), 8U);
    EXPECT_EQ(selected_node(), "");
    click_node("敬称");
    press("del");
    question(sure, true);
    EXPECT_EQ(enabled_buttons(), "close");
    EXPECT_EQ(tree_lines(), (rows{"条件設定", "  空", "  日付", "  数値", "  二択", "  新規"}));
  });
  EXPECT_EQ(titles().size(), 5U);
  EXPECT_EQ(store.value("select count(*) from replace_m"), "4");
  EXPECT_EQ(store.value("select count(*) from replace_cond"), "0");
  EXPECT_EQ(counters(), "33|40|7");
}

TEST_F(TitleBrowser, ARowThatAnotherProgramHasDeletedIsToldAndNothingIsWritten) {
  for (const std::string& button :
       std::vector<std::string>{"addf", "updatef", "delf", "add", "update", "copy", "del"}) {
    const bool is_folder = of_folder.find(button + " ") != std::string::npos;
    const std::string kind = is_folder ? "F" : "C";
    store.run("insert into replace values(20,0,'" + kind + "','消える',null,7)");
    browse(store, [&] {
      click_node("消える");
      store.run("delete from replace where replace_no=20");
      press(button);
      message(gone);
      EXPECT_EQ(enabled_buttons(), "close");
      EXPECT_EQ(tree_lines().size(), 10U);
    });
    EXPECT_EQ(titles().size(), 9U) << button;
  }
  EXPECT_EQ(counters(), "33|40|7");
}

TEST_F(TitleBrowser, AFolderDeletedUnderItsDialogEndsTheDialog) {
  browse(store, [this] {
    click_node("宛名");
    press("updatef");
    store.run("delete from replace where kind='F'");
    type("Text1", "新しい");
    press("Command2");
    message(gone);
    EXPECT_EQ(tree_lines().size(), 7U);
  });
}

TEST_F(TitleBrowser, AWaitIsShownAndLeftByTheUserWhoGetsNothingElseThrough) {
  ADODB::Connection other;
  other.Open(store.connect_string());
  other.BeginTrans(ADODB::purpose::writing);
  other.Execute("update replace set kind=kind where replace_no=3");
  const auto open = [this] { show_browser(store.connect_string() + ";LockTimeout=100"); };
  play(open, [&] {
    click_node("宛名");
    press("addf");
    type("Text1", "新");
    const auto press_and_leave = [](const std::function<void(QWidget & note)>& way) {
      bool was_shown = false;
      QTimer::singleShot(1500, [&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
          if (window->objectName() != "waiting_note") continue;
          was_shown = window->isVisible() && !window->findChild<QLabel*>()->text().isEmpty() &&
                      window->font() == top_window().font();
          QTest::keyClick(&top_window(), Qt::Key_Return);
          way(*window);
        }
      });
      press("Command2");
      EXPECT_TRUE(was_shown);
      EXPECT_NE(read_message().find(on_server() ? "user request" : "locked"), std::string::npos);
    };
    press_and_leave([](QWidget&) { QTest::keyClick(&top_window(), Qt::Key_Escape); });
    press_and_leave(
        [](QWidget& note) { QTest::mouseClick(note.findChild<QPushButton*>(), Qt::LeftButton); });
    other.RollbackTrans();
    EXPECT_EQ(store.value("select count(*) from replace where title='新'"), "0");
    press("Command2");
  });
  EXPECT_EQ(store.value("select count(*) from replace where title='新'"), "1");
}

TEST(FailureWords, HaveASentenceForEachKindAboveTheEnginesOwn) {
  using ADODB::failure_kind;
  std::set<std::string> sentences;
  for (int kind = 0; kind <= static_cast<int>(failure_kind::other); ++kind) {
    const ADODB::Error failure(static_cast<failure_kind>(kind), "it is so");
    const std::string words = ta_vorlumine::words_for(failure);
    EXPECT_TRUE(words.ends_with("。\n\nit is so")) << words;
    sentences.insert(words);
  }
  EXPECT_EQ(sentences.size(), 8U);
  EXPECT_EQ(ta_vorlumine::words_for(std::runtime_error("項目")), "項目");
  const std::string unexpected = ta_vorlumine::words_for(std::runtime_error("it is so"));
  EXPECT_EQ(unexpected, "予期しないエラーが発生しました。\n\nit is so");
}

}  // namespace
