#include <QAbstractItemView>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include "common_rules.h"

using namespace harness;

namespace {

const std::string condition = "東（部分一致）";

class FieldPicker : public common_rules {
 protected:
  static QComboBox& list() { return static_cast<QComboBox&>(control("Combo1")); }
  static void pick(const std::string& name) {
    choose("Combo1", name);
    press("Command1");
  }
  static void cancel() { press("Command2"); }
  /// Plays in the dialog for the condition of 敬称.
  void pick_under_condition(const std::function<void()>& script) {
    edit_at("敬称", condition, "addr_set", script);
  }
  rows fields(int definition) {
    return rules(definition, "replace_m_no,p_replace_m_no,field_id,replace_title", "use_type='F'");
  }
  const rows untouched{"10|0|F1|null"};
};

TEST_F(FieldPicker, AddsTheChosenFieldUnderACondition) {
  pick_under_condition([] {
    in("address_add");
    EXPECT_EQ(list().count(), 7);
    EXPECT_EQ(list().itemText(1), "フリガナ");
    EXPECT_EQ(text_of("Combo1"), "");
    EXPECT_EQ(focused_control(), "Combo1");
    key(Qt::Key_Return);
    message("アドレス項目を選択してください。");
    EXPECT_EQ(focused_control(), "Combo1");
    pick("会社名");
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    東（部分一致）", "      会社名",
                                  "    以外", "      不明"}));
  });
  EXPECT_EQ(fields(1), (rows{"10|0|F1|null", "41|11|F'5|null"}));
  EXPECT_EQ(counters(), "33|41|7");
}

TEST_F(FieldPicker, TheTopFieldTakesItsReservedKeyAndStillAdvancesTheCounter) {
  store.run(  // left behind when another program deleted the field above it
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type) "
      "values(2,15,21,'C','1')");
  edit_at("空", "置換条件", "addr_set", [] {
    pick("氏名");
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名"}));
  });
  EXPECT_EQ(rules(2, "replace_m_no,p_replace_m_no,field_id"), (rows{"21|0|F1"}));
  EXPECT_EQ(counters(), "33|41|7");
  store.run("update replace_m set p_replace_m_no=999 where replace_no=2");  // no tree shows it now
  edit_at("空", "置換条件", "addr_set", [] { pick("氏名"); });
  EXPECT_EQ(fields(2), (rows{"21|999|F1|null", "42|0|F1|null"}));
}

TEST_F(FieldPicker, ANameThatCannotBeLookedUpIsToldAndNothingIsWritten) {
  pick_under_condition([this] {
    pick("社長's室");
    message("項目名に「'」が含まれているため、この項目は設定できません。");
    store.run("delete from field where field_id='F3'");
    pick("取引開始日");
    message("選択した項目はアドレス帳から削除されています。");
    choose("Combo1", "会社名");
    control("Command2").setFocus();
    EXPECT_TRUE(static_cast<QPushButton&>(control("Command1")).isDefault()) << "it looks so, too";
    key(Qt::Key_Return);  // cancels
  });
  EXPECT_EQ(fields(1), untouched);
  EXPECT_EQ(counters(), "33|40|7");
}

TEST_F(FieldPicker, AnotherProgramsTopRowIsShownInPlaceOfASecondOne) {
  edit_at("空", "置換条件", "addr_set", [this] {
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
        "values(2,21,0,'F','F2')");
    pick("氏名");
    message("この位置には項目または置換値がすでに設定されています。一覧を読み直します。");
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  フリガナ"}));
  });
  EXPECT_EQ(fields(2), (rows{"21|0|F2|null"}));
  EXPECT_EQ(counters(), "33|40|7");
}

TEST_F(FieldPicker, PassesNumbersThatAreTakenAndStopsAtTheLastOne) {
  store.run(
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type) "
      "values(1,41,999,'X'),(1,42,999,'X')");
  pick_under_condition([this] {
    store.run("update seqno set replace_m=32767");
    pick("会社名");
    message("番号が上限の32767に達したため、これ以上登録できません。");
    EXPECT_EQ(fields(1), untouched);
    store.run("update seqno set replace_m=40");
    press("Command1");
  });
  EXPECT_EQ(fields(1), (rows{"10|0|F1|null", "43|11|F'5|null"}));
  EXPECT_EQ(counters(), "33|43|7");
}

TEST_F(FieldPicker, WithoutCountersTheKeyStillLiesAboveAllOfTheDefinition) {
  store.run("delete from seqno");
  pick_under_condition([] {
    pick("会社名");
    message("SEQNOテーブルがありません");
  });
  EXPECT_EQ(fields(1), (rows{"10|0|F1|null", "14|11|F'5|null"}));
}

TEST_F(FieldPicker, TypingFindsAnEntryOfALongList) {
  store.run(
      "with recursive n(i) as (select 1 union all select i+1 from n where i<2000) "
      "insert into field select 'N'||i, 'No.'||i||' 項目', 'T' from n");
  const auto reopen = [] {
    cancel();
    click_node(condition);
    press("addr_set");
  };
  pick_under_condition([&] {
    QTest::keyClicks(&list(), "no.19");
    EXPECT_EQ(text_of("Combo1"), "No.19 項目");
    QTest::keyClicks(&list(), "99");
    EXPECT_EQ(text_of("Combo1"), "No.1999 項目");
    list().showPopup();
    const QRect shown = list().view()->visibleRegion().boundingRect();
    EXPECT_EQ(shown.height() / list().view()->sizeHintForRow(0), 20) << "with a scroll bar";
    list().hidePopup();
    list().view()->setCurrentIndex(list().model()->index(1, 0));  // as a screen reader chooses
    EXPECT_EQ(text_of("Combo1"), "フリガナ");
    reopen();
    compose("氏");
    EXPECT_EQ(text_of("Combo1"), "氏名");
    reopen();
    compose("ふり");
    EXPECT_EQ(text_of("Combo1"), "フリガナ");
    for (const char* name : {"Pa", "1p", "Pb", "Qa", "Qb", "Qq"})
      store.run(std::string("insert into field values('") + name + "','" + name + "','T')");
    reopen();
    const auto found_twice = [](char letter) {
      QTest::keyClick(&list(), letter);
      const std::string first = text_of("Combo1");
      QTest::keyClick(&list(), letter);
      return first + text_of("Combo1");
    };
    EXPECT_EQ(found_twice('p'), "PaPb") << "the next one that begins so";
    reopen();
    EXPECT_EQ(found_twice('q'), "QaQq") << "what has been typed so far";
    reopen();
    compose("開");
    compose("始");
    EXPECT_EQ(text_of("Combo1"), "取引開始日");
    press("Command1");
  });
  EXPECT_EQ(fields(1).back(), "41|11|F3|null");
}

}  // namespace
