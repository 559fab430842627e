#include <gtest/gtest.h>

#include "condition_dialogs.h"

using namespace harness;

namespace {

class YesNoCondition : public condition_dialogs {};

TEST_F(YesNoCondition, AYesNoFieldHasOneConditionWhichIsOpenedAgain) {
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

TEST_F(YesNoCondition, AYesNoConditionPointsToItsLineThoughItsNumberWasTaken) {
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

TEST_F(YesNoCondition, AFieldThatCantBeLookedUpOpensNothing) {
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

}  // namespace
