#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "conditions/r_date_cond.h"
#include "conditions/typed_number.h"
#include "edited_rule.h"
#include "platform/form.h"

using namespace harness;

namespace {

/// A definition with one field of each kind that has a dialog; the text field has conditions.
class ConditionDialogs : public edited_rule {
 protected:
  void SetUp() override {
    edited_rule::SetUp();
    store.run_all({
        "insert into field values('F6','年齢','N'),('F7','会員','B')",
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
        "values(1,1,2,'S',2,'西'),(1,1,4,'S',3,'南')",
    });
    definition(30, "F3", "日付");
    definition(31, "F6", "数値");
    definition(32, "F7", "二択");
    definition(33, "F1", "新規");
  }

  void definition(int key, const std::string& field, const std::string& title) {
    const std::string no = std::to_string(key);
    store.run("insert into replace values(" + no + ",0,'C','" + title + "',null," + no + ")");
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
        "values(" +
        no + "," + no + ",0,'F','" + field + "')");
    store.run("update seqno set replace=33,replace_m=40,replace_cond=7");
  }

  static QTableView& grid() { return *top_window().findChild<QTableView*>("fg"); }
  static std::string cell(int row, int col) {
    return grid().model()->index(row - 1, col).data().toString().toStdString();
  }
  static rows column(int col) {
    rows texts;
    for (int row = 1; row <= grid().model()->rowCount(); ++row) texts.push_back(cell(row, col));
    return texts;
  }
  static void go_to(int row, int col) {
    const QModelIndex index = grid().model()->index(row - 1, col);
    grid().scrollTo(index);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(index).center());
    if (auto* list = QApplication::activePopupWidget()) list->close();
  }
  /// Types into a cell as a user does: composes the text, takes it with Enter.
  static void put(int row, int col, const std::string& text) {
    grid().setCurrentIndex(grid().model()->index(row - 1, col));
    grid().setFocus();
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromStdString(text));
    QApplication::sendEvent(QApplication::focusWidget(), &composed);
    key(Qt::Key_Return);
  }
  /// Picks the entry of a drop-down cell by its number.
  static void pick(int row, int col, const std::string& number) {
    const QModelIndex index = grid().model()->index(row - 1, col);
    grid().setCurrentIndex(index);
    grid().setFocus();
    QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(number));
    key(Qt::Key_Return);
  }
  static void ok() { press("Command1"); }
  static void cancel() { press("Command2"); }

  rows lines(int definition) {
    return store.rows(
        "select replace_cond_no,sno,use_type,s_method,s_val,d_f_method,d_f_val,"
        "d_t_method,d_t_val,n_f_method,n_f_val,n_t_method,n_t_val,b_val "
        "from replace_cond where replace_no=" +
        std::to_string(definition) + " order by 1,2");
  }
  rows conditions(int definition) {
    return store.rows(
        "select replace_m_no,p_replace_m_no,replace_cond_type,replace_cond_no from "
        "replace_m where use_type='C' and replace_no=" +
        std::to_string(definition) + " order by 1");
  }
  std::string counters() { return store.value("select * from seqno"); }
};

TEST_F(ConditionDialogs, ANewTextConditionStandsWithItsOtherwiseBranchOrNotAtAll) {
  user script = open("新規", "氏名", "cond_set");
  script.in("r_text_cond", [this] {
    EXPECT_EQ(text_of("Label1"), "氏名");
    put(1, 5, "捨てる");
    pick(1, 6, "1");
    EXPECT_EQ(grid().model()->rowCount(), 2);
    cancel();
  });
  script.in("replace_create", [this] {
    EXPECT_EQ(enabled_buttons(), "exit");
    EXPECT_EQ(conditions(33), rows{});
    click_node("氏名");
    press("cond_set");
  });
  script.in("r_text_cond", [] { ok(); });
  script.message("入力に誤りがあります。");
  script.in("r_text_cond", [] {
    EXPECT_EQ(grid().model()->rowCount(), 0);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, QPoint(50, 50));
    ASSERT_EQ(grid().model()->rowCount(), 1);
    put(1, 5, "O'Brien 😀");
    pick(1, 6, "3");
    put(2, 5, "値だけ");
    go_to(1, 5);
    ok();
  });
  script.message("設定完了！");
  play(script, [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    O'Brien 😀（完全一致）", "    以外"}));
  });
  EXPECT_EQ(lines(33), (rows{"8|1|S|3|O'Brien 😀|null|null|null|null|null|null|null|null|null"}));
  EXPECT_EQ(conditions(33), (rows{"41|33|0|8", "42|33|1|null"}));
  EXPECT_EQ(counters(), "33|42|8");
}

TEST_F(ConditionDialogs, LinesKeepTheirNumbersAndADeletedOneComesBackOnCancel) {
  const std::string condition = "東（部分一致）;西（先頭一致）;南（完全一致）";
  user script = open("敬称", condition, "cond_set");
  script.in("r_text_cond", [] {
    EXPECT_EQ(column(5), (rows{"東", "西", "南", ""}));
    EXPECT_EQ(column(6), (rows{"部分一致", "先頭一致", "完全一致", ""}));
    go_to(1, 5);
    press("Command3");
    EXPECT_EQ(column(5), (rows{"西", "南", ""}));
    cancel();
  });
  script.in("replace_create", [this, condition] {
    EXPECT_EQ(lines(1).size(), 3U);
    click_node(condition);
    press("cond_set");
  });
  script.in("r_text_cond", [] {
    go_to(2, 5);
    press("Command3");
    put(3, 5, "北");
    pick(3, 6, "1");
    ok();
  });
  script.message("設定完了！");
  play(script);
  EXPECT_EQ(store.rows("select sno,s_method,s_val from replace_cond where replace_no=1 order by 1"),
            (rows{"1|1|東", "4|3|南", "5|1|北"}));
  EXPECT_EQ(conditions(1), (rows{"11|10|0|1", "12|10|1|null"}));
  EXPECT_EQ(counters(), "33|40|7");
}

TEST_F(ConditionDialogs, ARefusedStatementKeepsEveryRowAsTypedAndEveryLineAsStored) {
  store.refuse("insert", "replace_cond", "だめです");
  const std::string condition = "東（部分一致）;西（先頭一致）;南（完全一致）";
  user script = open("敬称", condition, "cond_set");
  script.in("r_text_cond", [] {
    go_to(1, 5);
    press("Command3");
    put(3, 5, "北");
    ok();
  });
  script.message("だめです");
  script.in("r_text_cond", [this] {
    EXPECT_EQ(column(5), (rows{"西", "南", "北"}));
    EXPECT_EQ(lines(1).size(), 3U);
    store.stop_refusing();
    pick(3, 6, "2");
    ok();
  });
  script.message("設定完了！");
  play(script);
  EXPECT_EQ(store.rows("select sno,s_val from replace_cond where replace_no=1 order by 1"),
            (rows{"2|西", "4|南", "5|北"}));
}

TEST_F(ConditionDialogs, AnotherProgramsWriteInTheMeantimeCostsNoLine) {
  user script = open("新規", "氏名", "cond_set");
  script.in("r_text_cond", [this] {
    put(1, 5, "東");
    pick(1, 6, "1");
    // Another program makes a condition of its own, under the number lent to this dialog.
    store.run_all(
        {"insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_val) "
         "values(1,8,1,'S','よその行')",
         "update seqno set replace_cond=8"});
    ok();
  });
  script.message("設定完了！");
  play(script);
  EXPECT_EQ(store.rows("select replace_cond_no,s_val from replace_cond where replace_no=33"),
            (rows{"9|東"}));
  EXPECT_EQ(conditions(33), (rows{"41|33|0|9", "42|33|1|null"}));
  EXPECT_EQ(store.rows("select s_val from replace_cond where replace_cond_no=8"),
            (rows{"よその行"}));
}

TEST_F(ConditionDialogs, AnEmptiedConditionGoesAsDeletingItWould) {
  const auto empty_it = [](user& script) {
    script.in("r_text_cond", [] {
      for (int i = 0; i < 3; ++i) {
        go_to(1, 5);
        press("Command3");
      }
      ok();
    });
  };
  const std::string condition = "東（部分一致）;西（先頭一致）;南（完全一致）";
  user script = open("敬称", condition, "cond_set");
  empty_it(script);
  script.question("削除してもよろしいですか", false);
  script.in("r_text_cond", [] { cancel(); });
  script.in("replace_create", [this, condition] {
    EXPECT_EQ(lines(1).size(), 3U);
    click_node(condition);
    press("cond_set");
  });
  empty_it(script);
  script.question("削除してもよろしいですか", true);
  script.message("設定完了！");
  play(script, [] { EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名"})); });
  EXPECT_TRUE(lines(1).empty());
  EXPECT_EQ(store.rows("select replace_m_no from replace_m where replace_no=1"), (rows{"10"}));
}

TEST_F(ConditionDialogs, AValueOfTooManyCharactersStaysInEdit) {
  user script = open("敬称", "氏名", "cond_set");
  const std::string longest = std::string(99, 'x') + "😀";
  script.in("r_text_cond", [longest] {
    put(1, 5, longest);
    EXPECT_EQ(cell(1, 5), longest);
    cancel();
  });
  play(script);
}

TEST_F(ConditionDialogs, DatesAreCheckedWhileTypedAndAsRanges) {
  using namespace std::chrono;
  platform::form<ta_vorlumine::r_date_cond>().system_date = [] {
    return platform::system_date{'/', year(2024) / 2 / 29};
  };
  user script = open("日付", "取引開始日", "cond_set");
  script.in("r_date_cond", [] { put(1, 5, "2005-01-31"); });
  script.message("日付無効.(フォーマット:)2024/02/29");
  script.in("r_date_cond", [] {
    EXPECT_EQ(cell(1, 5), "2024/02/29");
    put(1, 7, "2005/13/45");
  });
  script.message("日付無効.範囲エラー！");
  script.in("r_date_cond", [] {
    EXPECT_EQ(cell(1, 7), "2005/13/45");
    pick(1, 6, "1");
    pick(1, 8, "2");
    ok();  // can't be compared: ends without a word
  });
  script.in("r_date_cond", [] {
    put(1, 7, "2024/03/01");
    pick(1, 6, "2");
    ok();
  });
  script.message("第1行目：日付の指定が正しくありません");
  script.in("r_date_cond", [] {
    pick(1, 6, "1");
    pick(2, 8, "1");
    put(2, 7, "1999/12/31");
    put(3, 5, "2000/01/01");
    ok();
  });
  script.message("設定完了！");
  play(script, [] {
    EXPECT_EQ(tree_lines()[2], "    2024/02/29から2024/03/01まで（含まない）;1999/12/31まで");
  });
  EXPECT_EQ(lines(30), (rows{"8|1|D|null|null|1|2024/02/29|2|2024/03/01|null|null|null|null|null",
                             "8|2|D|null|null|null|null|1|1999/12/31|null|null|null|null|null"}));
}

TEST_F(ConditionDialogs, NumbersAreComparedAsNumbers) {
  user script = open("数値", "年齢", "cond_set");
  script.in("r_number_cond", [] {
    put(1, 5, "10");
    pick(1, 6, "2");
    put(1, 7, "9.5");
    pick(1, 8, "2");
    ok();
  });
  script.message("第1行目：数字の指定が正しくありません");
  script.in("r_number_cond", [] {
    put(1, 5, "9");
    put(1, 7, "1,000");
    ok();  // no number: ends without a word
  });
  script.in("r_number_cond", [] {
    put(1, 7, " 10 ");
    put(2, 5, "abc");
    pick(2, 6, "1");
    ok();
  });
  script.whatever("the engine's refusal", [this] {
    EXPECT_TRUE(lines(31).empty());
    key(Qt::Key_Return);
  });
  script.in("r_number_cond", [] {
    put(2, 5, "0.1");
    ok();
  });
  script.message("設定完了！");
  play(script,
       [] { EXPECT_EQ(tree_lines()[2], "    9から（含まない）10まで（含まない）;0.1から"); });
}

TEST_F(ConditionDialogs, AYesNoFieldHasOneConditionWhichIsOpenedAgain) {
  user script = open("二択", "会員", "cond_set");
  script.in("r_yesno_cond", [] {
    EXPECT_EQ(text_of("Combo1"), "選択してください");
    ok();
  });
  script.message("選択してください!");
  script.in("r_yesno_cond", [] { cancel(); });
  script.in("replace_create", [this] {
    EXPECT_TRUE(lines(32).empty());
    EXPECT_EQ(counters(), "33|40|7");
    click_node("会員");
    press("cond_set");
  });
  script.in("r_yesno_cond", [] {
    choose("Combo1", "はい");
    ok();
  });
  script.message("設定完了！");
  script.in("replace_create", [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  会員", "    はい", "    以外"}));
    click_node("会員");
    press("cond_set");
  });
  script.in("r_yesno_cond", [] {
    EXPECT_EQ(text_of("Combo1"), "はい");
    choose("Combo1", "いいえ");
    ok();
  });
  script.message("設定完了！");
  play(script, [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  会員", "    いいえ", "    以外"}));
  });
  EXPECT_EQ(lines(32).size(), 1U);
  EXPECT_EQ(conditions(32), (rows{"41|32|0|8", "42|32|1|null"}));
  EXPECT_EQ(counters(), "33|42|8");
}

TEST_F(ConditionDialogs, AYesNoConditionPointsToItsLineThoughItsNumberWasTaken) {
  store.refuse("update", "replace_cond", "今は変更できません");
  user script = open("二択", "会員", "cond_set");
  script.in("r_yesno_cond", [] {
    choose("Combo1", "はい");
    ok();
  });
  script.message("今は変更できません").in("r_yesno_cond", [this] {
    store.stop_refusing();
    store.run_all(
        {"insert into replace_cond(replace_no,replace_cond_no,sno,use_type,b_val) "
         "values(32,8,1,'B',false)",
         "update seqno set replace_cond=8"});
    ok();
  });
  script.message("設定完了！");
  play(script, [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  会員", "    はい", "    以外"}));
  });
  EXPECT_EQ(conditions(32), (rows{"41|32|0|9", "42|32|1|null"}));
}

TEST_F(ConditionDialogs, ALoneConditionGetsItsOtherwiseBranchEvenIfTheDialogIsCancelled) {
  store.run("delete from replace_m where replace_no=1 and replace_m_no>11");
  user script = open("敬称", "氏名", "cond_set");
  script.in("r_text_cond", [] { cancel(); });
  play(script);
  EXPECT_EQ(conditions(1), (rows{"11|10|0|1", "41|10|1|null"}));
}

TEST_F(ConditionDialogs, AFieldThatCantBeLookedUpOpensNothing) {
  store.run("update field set field_name='会''員' where field_id='F7'");
  user script = open("二択", "会'員", "cond_set");
  script.message("項目名に「'」が含まれているため、条件を設定できません。");
  script.in("replace_create", [this] {
    store.run("delete from field where field_id='F7'");
    click_node("会'員");
    press("cond_set");
  });
  script.message("項目名に「'」が含まれているため、条件を設定できません。");
  script.in("replace_create", [] { press("exit"); });
  script.in("replaceForm", [] { press("close"); });
  script.browse(store);
  EXPECT_TRUE(conditions(32).empty());
}

TEST_F(ConditionDialogs, AConditionDeletedByAnotherProgramIsNotWrittenAgain) {
  const std::string condition = "東（部分一致）;西（先頭一致）;南（完全一致）";
  user script = open("敬称", condition, "cond_set");
  script.in("r_text_cond", [this] {
    put(1, 5, "変えた");
    store.run_all({"delete from replace_cond where replace_no=1",
                   "delete from replace_m where replace_no=1 and replace_m_no=11"});
    ok();
  });
  script.message("対象の行は他のプログラムによって削除されています。一覧を読み直します。");
  play(script);
  EXPECT_TRUE(lines(1).empty());
}

TEST_F(ConditionDialogs, AConditionThatGetsNoNumberOfItsOwnIsNotMade) {
  store.run_all({"delete from seqno", "update replace_cond set replace_no=33"});
  user script = open("新規", "氏名", "cond_set");
  script.message("SEQNOテーブルがありません").message("SEQNOテーブルがありません");
  script.message("条件の番号を決められません。");
  play(script);
  EXPECT_EQ(lines(33).size(), 3U);
}

TEST(TypedNumber, TakesJustTheFormsThatTheStoreTakes) {
  using ta_vorlumine::typed_number;
  for (const char* text : {"1", " -1.5 ", "+2", ".5", "5.", "1e3"}) {
    EXPECT_TRUE(typed_number(text)) << text;
  }
  for (const char* text :
       {"", " ", "１２", "1,000", "1 000", "abc", "inf", "nan", "0x10", "1e", "+-1"}) {
    EXPECT_FALSE(typed_number(text)) << text;
  }
}

}  // namespace
