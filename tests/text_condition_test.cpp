#include <QTest>
#include <chrono>
#include <thread>

#include "common_rules.h"

using namespace harness;

namespace {

const std::string condition = "東（部分一致）;西（先頭一致）;南（完全一致）";

class TextCondition : public common_rules {
 protected:
  TextCondition() {
    store.run(
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
        "values(1,1,2,'S',2,'西'),(1,1,4,'S',3,'南')");
  }

  rows texts(int definition) { return lines(definition, "replace_cond_no,sno,s_method,s_val"); }
  rows conditions(int definition) {
    return rules(definition, "replace_m_no,p_replace_m_no,replace_cond_type,replace_cond_no",
                 "use_type='C'");
  }
  static void ok() { press("Command1"); }
  static void cancel() { press("Command2"); }
  static void remove() { press("Command3"); }
  static void ok_done() {
    ok();
    message("設定完了！");
  }
};

TEST_F(TextCondition, ANewOneStandsWithItsOtherwiseBranchOrNotAtAll) {
  edit_at("新規", "氏名", "cond_set", [this] {
    in("r_text_cond");
    EXPECT_EQ(text_of("Label1"), "氏名");
    fill_cell(1, 5, "捨てる");
    fill_cell(1, 6, "1");
    EXPECT_EQ(grid_column(5), (rows{"捨てる", ""}));
    cancel();
    EXPECT_EQ(enabled_buttons(), "exit");
    EXPECT_EQ(conditions(33), rows{});
    click_node("氏名");
    press("cond_set");
    ok();
    message("入力に誤りがあります。");
    EXPECT_EQ(grid_column(5), rows{});
    act([] { QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, QPoint(50, 50)); });
    EXPECT_EQ(grid_column(5), rows{""});
    fill_cell(1, 5, "O'Brien 😀");
    fill_cell(1, 6, "3");
    fill_cell(2, 5, "値だけ");
    click_cell(1, 5);
    ok_done();
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    O'Brien 😀（完全一致）", "    以外"}));
    click_node("氏名");
    press("cond_set");
    fill_cell(1, 5, "次");
    fill_cell(1, 6, "2");
    ok_done();
    EXPECT_EQ(tree_lines()[3], "    次（先頭一致）");
  });
  EXPECT_EQ(texts(33), (rows{"8|1|3|O'Brien 😀", "9|1|2|次"}));
  EXPECT_EQ(conditions(33), (rows{"41|33|0|8", "42|33|1|null", "43|33|0|9"}));
  EXPECT_EQ(counters(), "33|43|9");
}

TEST_F(TextCondition, LinesKeepTheirNumbersAndADeletedOneComesBackOnCancel) {
  edit_at("敬称", condition, "cond_set", [this] {
    EXPECT_EQ(grid_column(5), (rows{"東", "西", "南", ""}));
    EXPECT_EQ(grid_column(6), (rows{"部分一致", "先頭一致", "完全一致", ""}));
    click_cell(1, 5);
    key(Qt::Key_F2);
    key(Qt::Key_Backspace);
    act([] { QTest::mouseClick(&control("Command3"), Qt::LeftButton); });
    EXPECT_EQ(grid_column(5), (rows{"西", "南", ""})) << "the row just being emptied goes alone";
    cancel();
    EXPECT_EQ(texts(1).size(), 3U);
    click_node(condition);
    press("cond_set");
    click_cell(2, 5);
    remove();
    fill_cell(3, 5, "北");
    fill_cell(3, 6, "1");
    EXPECT_EQ(grid_column(5).size(), 4U);
    fill_cell(4, 5, "中");
    fill_cell(4, 6, "1");
    EXPECT_EQ(texts(1).size(), 3U) << "nothing is written before OK is pressed";
    ok_done();
  });
  EXPECT_EQ(texts(1), (rows{"1|1|1|東", "1|4|3|南", "1|5|1|北", "1|6|1|中"}));
  EXPECT_EQ(conditions(1), (rows{"11|10|0|1", "12|10|1|null"}));
  EXPECT_EQ(counters(), "33|40|7");
}

TEST_F(TextCondition, ARefusedStatementKeepsEveryRowAsTypedAndEveryLineAsStored) {
  store.refuse("insert", "replace_cond", "だめです");
  edit_at("敬称", condition, "cond_set", [this] {
    click_cell(1, 5);
    remove();
    fill_cell(3, 5, "北");
    ok();
    message("だめです");
    EXPECT_EQ(grid_column(5), (rows{"西", "南", "北"}));
    EXPECT_EQ(texts(1).size(), 3U);
    store.stop_refusing();
    fill_cell(3, 6, "2");
    ok_done();
  });
  EXPECT_EQ(texts(1), (rows{"1|2|2|西", "1|4|3|南", "1|5|2|北"}));
}

TEST_F(TextCondition, OkWaitsForAProgramThatIsWriting) {
  ADODB::Connection other;
  std::jthread writer;
  edit_at("敬称", condition, "cond_set", [&] {
    fill_cell(1, 5, "北");
    other.Open(store.connect_string());
    other.BeginTrans(ADODB::purpose::writing);
    other.Execute("update replace_cond set s_method=3 where replace_no=1 and sno=4");
    writer = std::jthread([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
      other.CommitTrans();
    });
    ok_done();
  });
  EXPECT_EQ(texts(1).front(), "1|1|1|北");
}

TEST_F(TextCondition, ALineIsDeletedThoughAnotherProgramHasWrittenSinceTheDialogOpened) {
  edit_at("敬称", condition, "cond_set", [this] {
    store.run("update replace set comment='他' where title='敬称'");
    click_cell(1, 5);
    remove();
    EXPECT_EQ(grid_column(5), (rows{"西", "南", ""}));
    ok_done();
  });
  EXPECT_EQ(texts(1), (rows{"1|2|2|西", "1|4|3|南"}));
}

TEST_F(TextCondition, LinesThatAnotherProgramChangedAreWrittenOverOnlyWhenAsked) {
  const std::string asked =
      "この条件は他のプログラムによって変更されています。上書きしてもよろしいですか";
  edit_at("敬称", condition, "cond_set", [&] {
    fill_cell(1, 5, "北");
    store.run("update replace_cond set s_val='他人' where replace_no=1 and sno=4");
    ok();
    question(asked, false);
    EXPECT_EQ(texts(1), (rows{"1|1|1|東", "1|2|2|西", "1|4|3|他人"}));
    EXPECT_EQ(grid_column(5), (rows{"北", "西", "南", ""}));
    ok();
    question(asked, true);
    message("設定完了！");
  });
  EXPECT_EQ(texts(1), (rows{"1|1|1|北", "1|2|2|西", "1|4|3|南"}));
}

TEST_F(TextCondition, AnEmptiedConditionGoesAsDeletingItWould) {
  const auto empty_it = [] {
    for (int i = 0; i < 3; ++i) {
      click_cell(1, 5);
      remove();
    }
    ok();
  };
  edit_at("敬称", condition, "cond_set", [&] {
    empty_it();
    question("削除してもよろしいですか", false);
    in("r_text_cond");
    cancel();
    EXPECT_EQ(texts(1).size(), 3U);
    click_node(condition);
    press("cond_set");
    empty_it();
    question("削除してもよろしいですか", true);
    message("設定完了！");
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名"}));
  });
  EXPECT_TRUE(texts(1).empty());
  EXPECT_EQ(rules(1, "replace_m_no"), (rows{"10"}));
}

TEST_F(TextCondition, AnEmptiedConditionBesideOthersGoesWithoutAQuestion) {
  store.run_all(
      {"insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
       "replace_cond_no) values(1,15,10,'C','0',2)",
       "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
       "values(1,2,1,'S',1,'北')"});
  edit_at("敬称", "北（部分一致）", "cond_set", [] {
    click_cell(1, 5);
    remove();
    ok_done();
  });
  EXPECT_EQ(rules(1, "replace_m_no"), (rows{"10", "11", "12", "13"}));
}

TEST_F(TextCondition, AConditionThatHadNoLinesGetsOneOrStaysAsItWas) {
  store.run("delete from replace_cond");
  edit_at("敬称", "氏名/", "cond_set", [] {
    ok();
    message("入力に誤りがあります。");
    cancel();
  });
  EXPECT_EQ(conditions(1).size(), 2U);
}

// A text field cuts what is too long while it is typed, a memo field refuses it.
TEST_F(TextCondition, AValueOfTooManyCharactersIsNotTaken) {
  const std::string longest = std::string(99, 'x') + "😀";
  store.run("update replace_m set field_id='F2' where replace_no=33");
  edit_at("敬称", "氏名", "cond_set", [&] {
    fill_cell(1, 5, longest + "x");
    EXPECT_EQ(grid_column(5).front(), longest);
    cancel();
  });
  edit_at("新規", "フリガナ", "cond_set", [&] {
    fill_cell(1, 5, longest + "x");
    message("条件名が文字列長すぎます");
    key(Qt::Key_Backspace);
    key(Qt::Key_Return);
    EXPECT_EQ(grid_column(5).front(), longest);
    cancel();
  });
}

TEST_F(TextCondition, ALoneConditionGetsItsOtherwiseBranchEvenIfTheDialogIsCancelled) {
  store.run("delete from replace_m where replace_no=1 and replace_m_no>11");
  edit_at("敬称", "氏名", "cond_set", [] { cancel(); });
  EXPECT_EQ(conditions(1), (rows{"11|10|0|1", "41|10|1|null"}));
}

}  // namespace
