#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>
#include <fstream>

#include "edited_rule.h"
#include "store/sql.h"

using namespace harness;

namespace {

class ValueDialog : public edited_rule {
 protected:
  static constexpr const char* boxes[] = {"Text1", "Text2", "Text3", "Text4"};

  static user on_empty() { return open("空", "置換条件", "cond_val_set"); }
  static user on_value() { return open("敬称", "不明", "cond_val_set"); }

  static void ok() { press("Command1"); }
  static void cancel() { press("Command2"); }
  static void select(int option) { press("Option1(" + std::to_string(option) + ")"); }
  // Right after a message the window itself has not got the keyboard back yet.
  static std::string focused() { return top_window().focusWidget()->objectName().toStdString(); }
  static int selected() {
    for (int i = 0; i < 5; ++i) {
      const QString name = QString("Option1(%1)").arg(i);
      if (top_window().findChild<QRadioButton*>(name)->isChecked()) return i;
    }
    return -1;
  }
  /// The texts of the four boxes and the list.
  static std::string inputs() {
    std::string all;
    for (const char* name : {"Text1", "Text2", "Text3", "Text4", "Combo1"}) {
      all += text_of(name) + "|";
    }
    return all;
  }

  std::string last_value(const std::string& definition) {
    return store.value(
        "select replace_m_no,p_replace_m_no,replace_title,replace_type,r_text,r_text_filename,"
        "r_image_filename,r_mmedia_filename,r_field_id from replace_m where use_type='R' "
        "and replace_no=" +
        definition + " order by 1 desc");
  }
};

TEST_F(ValueDialog, AddsAValueOfEachKindAndMayLeaveItEmpty) {
  const char* const stored[] = {
      "21|0|d'or|S|it''s|null|null|null|null", "22|0|d'or|T|null|it''s|null|null|null",
      "23|0|d'or|I|null|null|it''s|null|null", "24|0|d'or|M|null|null|null||null"};
  for (int kind = 0; kind < 4; ++kind) {
    user user = on_empty();
    user.in("set_value", [kind] {
      EXPECT_EQ(selected(), 0);
      type("title_txt", "d'or");
      kind == 3 ? select(3) : type(boxes[kind], "it''s");
      ok();
    });
    play(user, [] { EXPECT_EQ(tree_lines(), (rows{"置換条件", "  d'or"})); });
    EXPECT_EQ(last_value("2"), stored[kind]);
    store.run("delete from replace_m where replace_no=2");
  }
  user user = open("敬称", "東（部分一致）", "cond_val_set");
  user.in("set_value", [] {
    choose("Combo1", "会社名");
    ok();
  });
  play(user);
  EXPECT_EQ(last_value("1"), "25|11|会社名|F|null|null|null|null|F'5");
  EXPECT_EQ(counter(), "25");
}

TEST_F(ValueDialog, ChangesAValueToEachKindAndBlanksTheOthers) {
  const char* const stored[] = {"13|12|題|S|新| | | | ", "13|12|題|T| |新| | | ",
                                "13|12|題|I| | |新| | ", "13|12|題|M| | | |新| "};
  for (const int kind : {1, 2, 3, 0}) {
    user user = open("敬称", kind == 1 ? "不明" : "題", "cond_val_set");
    user.in("set_value", [kind] {
      type("title_txt", "題");
      type(boxes[kind], "新");
      ok();
    });
    play(user);
    EXPECT_EQ(last_value("1"), stored[kind]);
  }
  user user = open("敬称", "題", "cond_val_set");
  user.in("set_value", [] {
    choose("Combo1", "フリガナ");
    EXPECT_EQ(inputs(), "||||フリガナ|");
    ok();
  });
  play(user);
  EXPECT_EQ(last_value("1"), "13|12|フリガナ|F|新| | | |F2");
  EXPECT_EQ(counter(), "20");
}

TEST_F(ValueDialog, AnInputSelectsItsKindAndEmptiesTheOthers) {
  user user = on_value();
  user.in("set_value", [] {
    EXPECT_EQ(focused(), "title_txt");
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
    auto& list = *top_window().findChild<QComboBox*>("Combo1");
    list.showPopup();
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(text_of("title_txt"), "会社名");
    cancel();
  });
  play(user);
  EXPECT_EQ(last_value("1"), "13|12|不明|S|様|null|null|null|null");
}

TEST_F(ValueDialog, ChecksTitleThenInputAndStaysOpen) {
  user user = on_empty();
  user.in("set_value",
          [] {
            select(4);
            ok();
          })
      .message("タイトルを入力してください。")
      .in("set_value",
          [] {
            EXPECT_TRUE(is_enabled("title_txt"));
            EXPECT_EQ(focused(), "title_txt");
            type("title_txt", "d'or");
            ok();
          })
      .message("フィールドを選択してください。")
      .in("set_value",
          [] {
            choose("Combo1", "氏名");
            type("title_txt", "");
            ok();
          })
      .message("タイトルを入力してください。")
      .in("set_value", [] {
        type("title_txt", "d'or");
        ok();
      });
  play(user);
  EXPECT_EQ(last_value("2"), "21|0|d'or|F|null|null|null|null|");

  harness::user changing = on_value();
  changing.in("set_value", [] {
    select(3);
    ok();
  });
  changing.message("置換値が必須です。").in("set_value", [] {
    EXPECT_EQ(focused(), "Text4");
    cancel();
  });
  play(changing);
  EXPECT_EQ(last_value("1"), "13|12|不明|S|様|null|null|null|null");
}

TEST_F(ValueDialog, ShowsAStoredValueOfEachKind) {
  const std::pair<const char*, const char*> kinds[] = {
      {"S", "s|||||"}, {"T", "|t||||"}, {"I", "||i|||"}, {"M", "|||m||"}, {"F", "||||氏名|"}};
  store.run(
      "update replace_m set replace_title='氏名',r_text='s',r_text_filename='t',"
      "r_image_filename='i',r_mmedia_filename='m',r_field_id='F1' where replace_m_no=13");
  for (int kind = 0; kind < 5; ++kind) {
    store.run(std::string("update replace_m set replace_type='") + kinds[kind].first +
              "' where replace_m_no=13");
    user user = open("敬称", "以外/氏名", "cond_val_set");
    user.in("set_value", [&, kind] {
      EXPECT_EQ(selected(), kind);
      EXPECT_EQ(text_of("title_txt"), "氏名");
      EXPECT_EQ(is_enabled("title_txt"), kind != 4);
      EXPECT_EQ(focused(), kind == 4 ? "Combo1" : "title_txt");
      EXPECT_EQ(inputs(), kinds[kind].second);
      cancel();
    });
    play(user);
  }
}

TEST_F(ValueDialog, RowsThatItWouldNotWriteAskForWhatIsMissing) {
  store.run(
      "update replace_m set replace_type='F',replace_title='消えた項目' where replace_m_no=13");
  user gone = open("敬称", "消えた項目", "cond_val_set");
  gone.in("set_value",
          [] {
            EXPECT_EQ(selected(), 4);
            EXPECT_EQ(text_of("title_txt") + inputs(), "消えた項目|||||");
            ok();
          })
      .message("フィールドを選択してください。")
      .in("set_value", cancel);
  play(gone);
  store.run("update replace_m set replace_type='Z',r_text=null where replace_m_no=13");
  user unknown = open("敬称", "消えた項目", "cond_val_set");
  unknown
      .in("set_value",
          [] {
            EXPECT_EQ(selected(), -1);
            ok();
          })
      .message("置換値が必須です。")
      .in("set_value", cancel);
  play(unknown);
  store.run("update replace_m set replace_type='S',replace_title=null where replace_m_no=13");
  user nulls = open("敬称", "以外/", "cond_val_set");
  nulls.in("set_value", [] {
    EXPECT_EQ(text_of("title_txt") + inputs(), "|||||");
    cancel();
  });
  play(nulls);
}

TEST_F(ValueDialog, KeepsEachCharacterOfAText) {
  const std::string odd =
      "一\r\n\t二\r\n\n三\r四\u2028五\u2029六\u00a0七\u3000 👨‍👩‍👧 '\r\n\r\n";
  std::string text = odd;
  while (text.size() < 1'000'000) text += "長い文章の一行です。It's a line.\r\n";
  store.run(ADODB::sql("update replace_m set r_text='<text>' where replace_m_no=13", {text}));
  user user = on_value();
  user.in("set_value", [] {
    // A line end that is typed is of the kind that the text has.
    auto& box = *top_window().findChild<QPlainTextEdit*>("Text1");
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, "a");
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&box, "b");
    ok();
  });
  play(user);
  EXPECT_TRUE(store.value("select r_text from replace_m where replace_m_no=13") ==
              text + "a\r\n\r\nb");
}

TEST_F(ValueDialog, TakesAPathAsChosen) {
  const std::string name = "住所録's 控え.TXT";
  std::ofstream(store.folder() / name) << "x";
  const std::string path = (store.folder() / name).string();
  user user = on_empty();
  user.in("set_value",
          [] {
            type("title_txt", "題");
            type("Text1", "消える");
            press("Command4");
          })
      .in("openDlg", [] { key(Qt::Key_Escape); })
      .in("set_value",
          [] {
            EXPECT_EQ(inputs(), "消える|||||");
            press("Command3");
          })
      .in("openDlg",
          [&] {
            EXPECT_EQ(top_window().windowTitle().toStdString(), "TEXT File Open");
            EXPECT_EQ(text_of("fileTypeCombo"), "Text Files(*.txt)");
            auto& edit = *top_window().findChild<QLineEdit*>("fileNameEdit");
            edit.setText(QString::fromStdString(path));
            QTest::keyClick(&edit, Qt::Key_Return);
          })
      .in("set_value", [&] {
        EXPECT_EQ(selected(), 1);
        EXPECT_EQ(inputs(), "|" + path + "||||");
        ok();
      });
  play(user);
  EXPECT_EQ(last_value("2"), "21|0|題|T|null|" + path + "|null|null|null");
}

TEST_F(ValueDialog, APlaceTakesOneValueHoweverOftenOkIsPressed) {
  store.refuse("update", "seqno", "今は変更できません");
  user user = open("空", "置換条件", "cond_val_set");
  user.in("set_value", [] {
    type("title_txt", "題");
    ok();
  });
  user.message("今は変更できません").in("set_value", [this] {
    store.stop_refusing();
    ok();
  });
  user.message("この位置には項目または置換値がすでに設定されています。一覧を読み直します。");
  play(user, [] { EXPECT_EQ(tree_lines(), (rows{"置換条件", "  題"})); });
}

TEST_F(ValueDialog, WritesNothingUnderWhatIsGoneOrRefused) {
  store.refuse("update", "replace_m", "今は変更できません");
  user refused = on_value();
  refused.in("set_value", [] {
    type("Text1", "新しい文章");
    ok();
  });
  refused.message("今は変更できません").in("set_value", [this] {
    EXPECT_EQ(text_of("Text1"), "新しい文章");
    store.stop_refusing();
    store.run("delete from replace_m where replace_m_no=13");
    ok();
  });
  refused.message("対象の行は他のプログラムによって削除されています。一覧を読み直します。");
  play(refused, [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    東（部分一致）", "    以外"}));
  });
  EXPECT_EQ(last_value("1"), "no row");
}

}  // namespace
