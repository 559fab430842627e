#include "common_rules.h"

using namespace harness;

namespace {

class YesNoCondition : public common_rules {
 protected:
  rows conditions() {
    return rules(32, "replace_m_no,p_replace_m_no,replace_cond_type,replace_cond_no",
                 "use_type='C'");
  }
  static rows shown(const std::string& answer) {
    return {"置換条件", "  会員", "    " + answer, "    以外"};
  }
  static void ok() { press("Command1"); }
  static void answer(const std::string& entry) {
    choose("Combo1", entry);
    ok();
  }
};

TEST_F(YesNoCondition, AFieldHasOneWhichIsOpenedAgain) {
  const auto open = [](const std::string& node) {
    click_node(node);
    press("cond_set");
    in("r_yesno_cond");
  };
  edit_at("二択", "会員", "cond_set", [&] {
    EXPECT_EQ(text_of("Combo1"), "選択してください");
    ok();
    message("選択してください!");
    in("r_yesno_cond");
    press("Command2");
    EXPECT_EQ(lines(32, "sno"), rows{});
    EXPECT_EQ(counters(), "33|40|7");
    open("会員");
    answer("はい");
    message("設定完了！");
    EXPECT_EQ(tree_lines(), shown("はい"));
    open("会員");
    EXPECT_EQ(text_of("Combo1"), "はい");
    answer("いいえ");
    message("設定完了！");
    EXPECT_EQ(tree_lines(), shown("いいえ"));
    open("いいえ");
    EXPECT_EQ(text_of("Combo1"), "いいえ");
    choose("Combo1", "はい");
    press("Command2");
    EXPECT_EQ(tree_lines(), shown("いいえ"));
  });
  EXPECT_EQ(lines(32, "replace_cond_no,sno,use_type"), rows{"8|1|B"});
  EXPECT_EQ(conditions(), (rows{"41|32|0|8", "42|32|1|null"}));
  EXPECT_EQ(counters(), "33|42|8");
}

TEST_F(YesNoCondition, PointsToItsLineThoughItsNumberWasTaken) {
  store.refuse("update", "replace_cond", "今は変更できません");
  edit_at("二択", "会員", "cond_set", [this] {
    answer("はい");
    message("今は変更できません");
    EXPECT_EQ(lines(32, "sno"), rows{}) << "all of it or nothing";
    store.stop_refusing();
    store.run_all(
        {"insert into replace_cond(replace_no,replace_cond_no,sno,use_type,b_val) "
         "values(32,8,1,'B',false)",
         "update seqno set replace_cond=8"});
    ok();
    message("設定完了！");
    EXPECT_EQ(tree_lines(), shown("はい"));
  });
  EXPECT_EQ(conditions(), (rows{"41|32|0|9", "42|32|1|null"}));
}

TEST_F(YesNoCondition, AFieldWithAnOtherwiseBranchAloneGetsItsCondition) {
  store.run(
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type) "
      "values(32,45,32,'C','1')");
  edit_at("二択", "会員", "cond_set", [] {
    answer("はい");
    message("設定完了！");
    EXPECT_EQ(tree_lines(), shown("はい"));
  });
  EXPECT_EQ(conditions(), (rows{"45|32|1|null", "46|32|0|8"}));
}

TEST_F(YesNoCondition, AFieldThatCantBeLookedUpOpensNothing) {
  const std::string why = "項目名に「'」が含まれているため、条件を設定できません。";
  store.run("update field set field_name='会''員' where field_id='F7'");
  edit(store, "二択", [&] {
    click_node("会'員");
    press("cond_set");
    message(why);
    store.run("delete from field where field_id='F7'");
    click_node("会'員");
    press("cond_set");
    message(why);
  });
  edit(store, "二択", [&] {
    click_node("F7");
    press("cond_set");
    message("項目「F7」がアドレス帳にないため、条件を設定できません。");
  });
  EXPECT_TRUE(conditions().empty());
}

}  // namespace
