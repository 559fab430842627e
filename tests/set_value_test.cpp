#include <QAbstractFileIconProvider>
#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <fstream>

#include "common_rules.h"
#include "store/sql.h"

using namespace harness;

namespace {

const std::string needs_title = "タイトルを入力してください。";
const std::string needs_value = "置換値が必須です。";

class ValueDialog : public common_rules {
 protected:
  static constexpr const char* boxes[] = {"Text1", "Text2", "Text3", "Text4"};

  void add(const std::function<void()>& script) {
    edit_at("空", "置換条件", "cond_val_set", script);
  }
  /// Changes the value of 敬称.
  void change(const std::string& title, const std::function<void()>& script) {
    edit_at("敬称", "以外/" + title, "cond_val_set", script);
  }

  static void ok() { press("Command1"); }
  static void cancel() { press("Command2"); }
  static void select(int option) { press("Option1(" + std::to_string(option) + ")"); }
  static int selected() {
    for (int i = 0; i < 5; ++i) {
      const std::string name = "Option1(" + std::to_string(i) + ")";
      if (static_cast<QRadioButton&>(control(name)).isChecked()) return i;
    }
    return -1;
  }
  /// The texts of the four boxes and the list.
  static std::string inputs() {
    std::string all;
    for (const char* name : boxes) all += text_of(name) + "|";
    return all + text_of("Combo1") + "|";
  }

  std::string last_value(int definition) {
    const rows values =
        rules(definition,
              "replace_m_no,p_replace_m_no,replace_title,replace_type,r_text,r_text_filename,"
              "r_image_filename,r_mmedia_filename,r_field_id",
              "use_type='R'");
    return values.empty() ? "none" : values.back();
  }
  const std::string untouched = "13|12|不明|S|様|null|null|null|null";
};

TEST_F(ValueDialog, AddsAValueOfEachKindAndMayLeaveItEmpty) {
  const char* const stored[] = {
      "41|0|d'or|S|it''s|null|null|null|null", "42|0|d'or|T|null|it''s|null|null|null",
      "43|0|d'or|I|null|null|it''s|null|null", "44|0|d'or|M|null|null|null||null"};
  for (int kind = 0; kind < 4; ++kind) {
    add([kind] {
      in("set_value");
      EXPECT_EQ(selected(), 0);
      type("title_txt", "d'or");
      kind == 3 ? select(3) : type(boxes[kind], "it''s");
      ok();
      EXPECT_EQ(tree_lines(), (rows{"置換条件", "  d'or"}));
    });
    EXPECT_EQ(last_value(2), stored[kind]);
    store.run("delete from replace_m where replace_no=2");
  }
  edit_at("敬称", "東（部分一致）", "cond_val_set", [] {
    choose("Combo1", "会社名");
    ok();
  });
  EXPECT_EQ(last_value(1), "45|11|会社名|F|null|null|null|null|F'5");
  EXPECT_EQ(counters(), "33|45|7");
}

TEST_F(ValueDialog, ChangesAValueToEachKindBlanksTheOthersAndShowsIt) {
  const auto expect_shown = [](int kind, const std::string& title, const std::string& texts) {
    click_node("以外/" + title);
    press("cond_val_set");
    EXPECT_EQ(selected(), kind);
    EXPECT_EQ(text_of("title_txt"), title);
    EXPECT_EQ(is_enabled("title_txt"), kind != 4);
    EXPECT_EQ(focused_control(), kind == 4 ? "Combo1" : "title_txt");
    EXPECT_EQ(inputs(), texts);
    cancel();
  };
  const std::pair<const char*, const char*> stored[] = {{"13|12|題|S|新| | | | ", "新|||||"},
                                                        {"13|12|題|T| |新| | | ", "|新||||"},
                                                        {"13|12|題|I| | |新| | ", "||新|||"},
                                                        {"13|12|題|M| | | |新| ", "|||新||"}};
  for (const int kind : {1, 2, 3, 0}) {
    change(kind == 1 ? "不明" : "題", [&] {
      type("title_txt", "題");
      type(boxes[kind], "新");
      ok();
      EXPECT_EQ(last_value(1), stored[kind].first);
      expect_shown(kind, "題", stored[kind].second);
    });
  }
  change("題", [&] {
    choose("Combo1", "フリガナ");
    ok();
    expect_shown(4, "フリガナ", "||||フリガナ|");
  });
  EXPECT_EQ(last_value(1), "13|12|フリガナ|F|新| | | |F2");
  EXPECT_EQ(counters(), "33|40|7");
}

TEST_F(ValueDialog, TellsAScreenReaderWhatEachInputIsFor) {
  add([] {
    for (const char* chosen : {"Option1(3)", "Option1(1)"}) {
      press(chosen);
      std::string stops;
      for (int kind = 0; kind < 5; ++kind) {
        const std::string option = "Option1(" + std::to_string(kind) + ")";
        if (control(option).focusPolicy() & Qt::TabFocus) stops += option;
      }
      EXPECT_EQ(stops, chosen) << "Tab comes to the one that is chosen, arrows to the others";
    }
    std::string names = text_of("Label1") + "|";
    for (const char* name : {"Text1", "Text2", "Command3", "Text4", "Command5", "Combo1"})
      names += control(name).accessibleName().toStdString() + "|";
    EXPECT_EQ(names,
              "タイトル|ﾃｷｽﾄ|ﾃｷｽﾄﾌｧｲﾙ|ﾃｷｽﾄﾌｧｲﾙの参照|ﾏﾙﾁﾒﾃﾞｨｱﾌｧｲﾙ|ﾏﾙﾁﾒﾃﾞｨｱﾌｧｲﾙの参照|ｱﾄﾞﾚｽ帳項目|");
    cancel();
  });
}

TEST_F(ValueDialog, AnInputSelectsItsKindAndEmptiesTheOthers) {
  change("不明", [] {
    EXPECT_EQ(focused_control(), "title_txt");
    const auto& area = static_cast<QPlainTextEdit&>(control("Text1"));
    EXPECT_TRUE(area.verticalScrollBar()->isVisible()) << "its lines keep their places";
    EXPECT_EQ(inputs(), "様|||||");
    type("Text3", "x.jpg");
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(inputs(), "||x.jpg|||");
    type("Text3", "");
    EXPECT_EQ(selected(), 2);
    type("Text1", "二行\n目");
    EXPECT_EQ(selected(), 0);
    select(1);
    EXPECT_EQ(inputs(), "|||||");
    type("Text4", "a.avi");
    choose("Combo1", "会社名");
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(inputs(), "||||会社名|");
    EXPECT_EQ(text_of("title_txt"), "会社名");
    EXPECT_FALSE(is_enabled("title_txt"));
    select(3);
    EXPECT_TRUE(is_enabled("title_txt"));
    EXPECT_EQ(inputs(), "||||会社名|");
    type("title_txt", "別の題");
    // The same field once more is a choice too.
    auto& list = static_cast<QComboBox&>(control("Combo1"));
    list.showPopup();
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(text_of("title_txt"), "会社名");
    cancel();
  });
  EXPECT_EQ(last_value(1), untouched);
}

TEST_F(ValueDialog, ChecksTitleThenInputAndStaysOpen) {
  add([] {
    select(4);
    ok();
    message(needs_title);
    EXPECT_TRUE(is_enabled("title_txt"));
    EXPECT_EQ(focused_control(), "title_txt");
    type("title_txt", "d'or");
    ok();
    message("フィールドを選択してください。");
    choose("Combo1", "氏名");
    EXPECT_EQ(text_of("title_txt"), "氏名");
    type("title_txt", "");
    ok();
    message(needs_title);
    type("title_txt", "d'or");
    ok();
  });
  EXPECT_EQ(last_value(2), "41|0|d'or|F|null|null|null|null|");
  change("不明", [] {
    for (int kind = 0; kind < 4; ++kind) {
      select(kind);
      type(boxes[kind], "");
      control("Command1").setFocus();
      ok();
      message(needs_value);
      EXPECT_EQ(focused_control(), boxes[kind]);
    }
    cancel();
  });
  EXPECT_EQ(last_value(1), untouched);
}

TEST_F(ValueDialog, RowsThatItWouldNotWriteAskForWhatIsMissing) {
  const auto set = [this](const std::string& columns) {
    store.run("update replace_m set " + columns + " where replace_m_no=13");
  };
  set("replace_type='F',replace_title='消えた項目'");
  change("消えた項目", [] {
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(text_of("title_txt") + inputs(), "消えた項目|||||");
    ok();
    message("フィールドを選択してください。");
    cancel();
  });
  set("replace_type='Z',r_text=null");
  change("消えた項目", [] {
    EXPECT_EQ(selected(), -1);
    ok();
    message(needs_value);
    cancel();
  });
  set("replace_type='S',replace_title=null");
  change("", [] {
    EXPECT_EQ(text_of("title_txt") + inputs(), "|||||");
    cancel();
  });
}

TEST_F(ValueDialog, KeepsEachCharacterOfAText) {
  const std::string odd =
      "一\r\n\t二\r\n\n三\r四\u2028五\u2029六\u00a0七\u3000 👨‍👩‍👧 '\r\n\r\n";
  std::string text = odd;
  while (text.size() < 1'000'000) text += "長い文章の一行です。It's a line.\r\n";
  store.run(ADODB::sql("update replace_m set r_text='<text>' where replace_m_no=13", {text}));
  change("不明", [] {
    // A line end that is typed is of the kind that the text has.
    auto& box = static_cast<QPlainTextEdit&>(control("Text1"));
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, "a");
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(box.viewport()->rect().contains(box.cursorRect()));
    QTest::keyClicks(&box, "b");
    ok();
  });
  EXPECT_TRUE(store.value("select r_text from replace_m where replace_m_no=13") ==
              text + "a\r\n\r\nb");
}

TEST_F(ValueDialog, TakesAPathAsChosen) {
  const std::string name = "住所録's 控え.TXT";
  std::ofstream(store.folder() / name) << "x";
  const std::string path = (store.folder() / name).string();
  add([&] {
    type("title_txt", "題");
    type("Text1", "消える");
    for (const auto& [button, kinds] :
         {std::pair{"Command4", "Image Files(*.jpg,*.bmp,*.gif)"},
          {"Command5", "Media Files(*.avi,*.mpeg,*.mpg,*.rm,*.ram)"}}) {
      press(button);
      in("openDlg");
      EXPECT_EQ(text_of("fileTypeCombo"), kinds);
      key(Qt::Key_Escape);
      EXPECT_EQ(inputs(), "消える|||||");
    }
    press("Command3");
    EXPECT_EQ(top_window().windowTitle(), "TEXT File Open");
    EXPECT_EQ(text_of("fileTypeCombo"), "Text Files(*.txt)");
    const QAbstractFileIconProvider& words =
        *static_cast<QFileDialog&>(top_window()).iconProvider();
    EXPECT_EQ(words.type(QFileInfo(PROJECT_ROOT)), "フォルダ");
    EXPECT_NE(QCoreApplication::translate("QLineEdit", "&Undo"), "&Undo") << "the toolkit's own";
    const auto& files = static_cast<QTreeView&>(control("treeView"));
    const QModelIndex file = files.model()->index(0, 0, files.rootIndex());
    const QModelIndex date = file.siblingAtColumn(3);
    EXPECT_TRUE(QDateTime::fromString(date.data().toString(), "yyyy/MM/dd HH:mm").isValid());
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return files.columnWidth(3) >= files.sizeHintForIndex(date).width(); }));
    auto& edit = static_cast<QLineEdit&>(control("fileNameEdit"));
    edit.setText(QString::fromStdString(path));
    act([&] { QTest::keyClick(&edit, Qt::Key_Return); });
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(inputs(), "|" + path + "||||");
    ok();
  });
  EXPECT_EQ(last_value(2), "41|0|題|T|null|" + path + "|null|null|null");
}

TEST_F(ValueDialog, WritesNothingUnderWhatIsGoneOrRefused) {
  store.refuse("update", "replace_m", "今は変更できません");
  change("不明", [this] {
    type("Text1", "新しい文章");
    ok();
    message("今は変更できません");
    EXPECT_EQ(text_of("Text1"), "新しい文章");
    store.stop_refusing();
    store.run("delete from replace_m where replace_m_no=13");
    ok();
    message(gone);
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    東（部分一致）", "    以外"}));
  });
  EXPECT_EQ(last_value(1), "none");
}

}  // namespace
