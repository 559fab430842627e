#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QMessageBox>
#include <QTest>

#include "edited_rule.h"

using namespace harness;

namespace {

class FieldPicker : public edited_rule {
 protected:
  static constexpr const char* condition = "東（部分一致）";

  static QComboBox& list() { return *top_window().findChild<QComboBox*>("Combo1"); }
  static void compose(const char* text) {
    QInputMethodEvent composed;
    composed.setCommitString(text);
    QApplication::sendEvent(&list(), &composed);
  }
  static void pick(const std::string& name) {
    choose("Combo1", name);
    press("Command1");
  }
  static void cancel() { press("Command2"); }

  rows fields() {
    return store.rows(
        "select replace_no,replace_m_no,p_replace_m_no,field_id,replace_title from replace_m "
        "where use_type='F' order by 1,2");
  }
  const rows untouched{"1|10|0|F1|null"};
};

TEST_F(FieldPicker, AddsTheChosenFieldUnderACondition) {
  user user = open("敬称", condition, "addr_set");
  user.in("address_add",
          [] {
            EXPECT_EQ(list().count(), 5);
            EXPECT_EQ(list().itemText(1), "フリガナ");
            EXPECT_EQ(text_of("Combo1"), "");
            EXPECT_EQ(focused_control(), "Combo1");
            key(Qt::Key_Return);
          })
      .message("アドレス項目を選択してください。")
      .in("address_add", [] { pick("会社名"); });
  play(user, [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    東（部分一致）", "      会社名",
                                  "    以外", "      不明"}));
  });
  EXPECT_EQ(fields(), (rows{"1|10|0|F1|null", "1|21|11|F'5|null"}));
  EXPECT_EQ(counter(), "21");
}

TEST_F(FieldPicker, TheTopFieldTakesItsReservedKeyAndStillAdvancesTheCounter) {
  store.run("update seqno set replace_m=30");
  user user = open("空", "置換条件", "addr_set");
  user.in("address_add", [] { pick("氏名"); });
  play(user);
  EXPECT_EQ(fields(), (rows{"1|10|0|F1|null", "2|21|0|F1|null"}));
  EXPECT_EQ(counter(), "31");
}

TEST_F(FieldPicker, CancelAndEnterOnItWriteNothing) {
  user user = open("敬称", condition, "addr_set");
  user.in("address_add", [] {
    choose("Combo1", "会社名");
    top_window().findChild<QWidget*>("Command2")->setFocus();
    key(Qt::Key_Return);
  });
  play(user);
  EXPECT_EQ(fields(), untouched);
  EXPECT_EQ(counter(), "20");
}

TEST_F(FieldPicker, ANameThatCannotBeLookedUpIsToldAndNothingIsWritten) {
  user user = open("敬称", condition, "addr_set");
  user.in("address_add", [] { pick("社長's室"); })
      .message("項目名に「'」が含まれているため、この項目は設定できません。")
      .in("address_add",
          [this] {
            store.run("delete from field where field_id='F3'");
            pick("取引開始日");
          })
      .message("選択した項目はアドレス帳から削除されています。")
      .in("address_add", cancel);
  play(user);
  EXPECT_EQ(fields(), untouched);
  EXPECT_EQ(counter(), "20");
}

TEST_F(FieldPicker, AnotherProgramsTopRowIsShownInPlaceOfASecondOne) {
  user user = open("空", "置換条件", "addr_set");
  user.in("address_add",
          [this] {
            store.run(
                "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
                "values(2,21,0,'F','F2')");
            pick("氏名");
          })
      .message("この位置には項目または置換値がすでに設定されています。一覧を読み直します。");
  play(user, [] { EXPECT_EQ(tree_lines(), (rows{"置換条件", "  フリガナ"})); });
  EXPECT_EQ(fields(), (rows{"1|10|0|F1|null", "2|21|0|F2|null"}));
  EXPECT_EQ(counter(), "20");
}

TEST_F(FieldPicker, AConditionThatIsGoneGetsNoField) {
  user user = open("敬称", condition, "addr_set");
  user.in("address_add",
          [this] {
            store.run("delete from replace_m where replace_m_no=11");
            pick("会社名");
          })
      .message("対象の行は他のプログラムによって削除されています。一覧を読み直します。");
  play(user, [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    以外", "      不明"}));
  });
  EXPECT_EQ(fields(), untouched);
}

TEST_F(FieldPicker, PassesNumbersThatAreTakenAndStopsAtTheLastOne) {
  store.run(
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type) "
      "values(1,21,999,'X'),(1,22,999,'X')");
  user user = open("敬称", condition, "addr_set");
  user.in("address_add",
          [this] {
            store.run("update seqno set replace_m=32767");
            pick("会社名");
          })
      .message("番号が上限の32767に達したため、これ以上登録できません。")
      .in("address_add", [this] {
        EXPECT_EQ(fields(), untouched);
        store.run("update seqno set replace_m=20");
        press("Command1");
      });
  play(user);
  EXPECT_EQ(fields(), (rows{"1|10|0|F1|null", "1|23|11|F'5|null"}));
  EXPECT_EQ(counter(), "23");
}

TEST_F(FieldPicker, WithoutCountersTheKeyStillLiesAboveAllOfTheDefinition) {
  store.run("delete from seqno");
  user user = open("敬称", condition, "addr_set");
  user.in("address_add", [] { pick("会社名"); }).message("SEQNOテーブルがありません");
  play(user);
  EXPECT_EQ(fields(), (rows{"1|10|0|F1|null", "1|14|11|F'5|null"}));
}

TEST_F(FieldPicker, TypingFindsAnEntryOfALongList) {
  store.run(
      "with recursive n(i) as (select 1 union all select i+1 from n where i<2000) "
      "insert into field select 'N'||i, 'No.'||i||' 項目', 'T' from n");
  user user = open("敬称", condition, "addr_set");
  user.in("address_add", [] {
    QElapsedTimer clock;
    clock.start();
    QTest::keyClicks(&list(), "no.19");
    EXPECT_EQ(text_of("Combo1"), "No.19 項目");
    QTest::keyClicks(&list(), "99");
    EXPECT_EQ(text_of("Combo1"), "No.1999 項目");
    EXPECT_LT(clock.elapsed(), 1000);
    QTest::qWait(1600);  // typing starts anew after a pause
    compose("ふり");
    EXPECT_EQ(text_of("Combo1"), "フリガナ");
    QTest::qWait(1600);
    compose("開");
    compose("始");
    EXPECT_EQ(text_of("Combo1"), "取引開始日");
    press("Command1");
  });
  play(user);
  EXPECT_EQ(fields().back(), "1|21|11|F3|null");
}

}  // namespace
