#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "condition_dialogs.h"

using namespace harness;

namespace {

class TextCondition : public condition_dialogs {};

TEST_F(TextCondition, ANewTextConditionStandsWithItsOtherwiseBranchOrNotAtAll) {
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

TEST_F(TextCondition, LinesKeepTheirNumbersAndADeletedOneComesBackOnCancel) {
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

TEST_F(TextCondition, ARefusedStatementKeepsEveryRowAsTypedAndEveryLineAsStored) {
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

TEST_F(TextCondition, OkWaitsForAProgramThatIsWriting) {
  ADODB::Connection other;
  std::jthread writer;
  user script = open("敬称", "東（部分一致）;西（先頭一致）;南（完全一致）", "cond_set");
  script.in("r_text_cond", [&] {
    put(1, 5, "北");
    other.Open(store.connect_string());
    other.BeginTrans(ADODB::purpose::writing);
    other.Execute("update replace_cond set s_method=3 where replace_no=1 and sno=4");
    writer = std::jthread([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      other.CommitTrans();
    });
    ok();
  });
  script.message("設定完了！");
  play(script);
  EXPECT_EQ(store.value("select s_val from replace_cond where replace_no=1 and sno=1"), "北");
}

TEST_F(TextCondition, AnotherProgramsWriteInTheMeantimeCostsNoLine) {
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

TEST_F(TextCondition, AnEmptiedConditionGoesAsDeletingItWould) {
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

TEST_F(TextCondition, DeletingARowThatIsJustBeingEmptiedTakesNoOther) {
  user script = open("敬称", "東（部分一致）;西（先頭一致）;南（完全一致）", "cond_set");
  script.in("r_text_cond", [] {
    go_to(1, 5);
    key(Qt::Key_F2);
    key(Qt::Key_Backspace);
    QTest::mouseClick(top_window().findChild<QWidget*>("Command3"), Qt::LeftButton);
    EXPECT_EQ(column(5), (rows{"西", "南", ""}));
    cancel();
  });
  play(script);
}

TEST_F(TextCondition, AValueOfTooManyCharactersStaysInEdit) {
  user script = open("敬称", "氏名", "cond_set");
  const std::string longest = std::string(99, 'x') + "😀";
  script.in("r_text_cond", [longest] {
    put(1, 5, longest);
    EXPECT_EQ(cell(1, 5), longest);
    cancel();
  });
  play(script);
}

TEST_F(TextCondition, ALoneConditionGetsItsOtherwiseBranchEvenIfTheDialogIsCancelled) {
  store.run("delete from replace_m where replace_no=1 and replace_m_no>11");
  user script = open("敬称", "氏名", "cond_set");
  script.in("r_text_cond", [] { cancel(); });
  play(script);
  EXPECT_EQ(conditions(1), (rows{"11|10|0|1", "41|10|1|null"}));
}

TEST_F(TextCondition, AConditionDeletedByAnotherProgramIsNotWrittenAgain) {
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

TEST_F(TextCondition, AConditionThatGetsNoNumberOfItsOwnIsNotMade) {
  store.run_all({"delete from seqno", "update replace_cond set replace_no=33"});
  user script = open("新規", "氏名", "cond_set");
  script.message("SEQNOテーブルがありません").message("SEQNOテーブルがありません");
  script.message("条件の番号を決められません。");
  play(script);
  EXPECT_EQ(lines(33).size(), 3U);
}

}  // namespace
