#include "common_rules.h"

using namespace harness;

namespace {

/// A definition that another program changes while it is open.
class EditorOfTwo : public common_rules {
 protected:
  EditorOfTwo() { store.run_script("rich_definition.sql"); }

  std::string title_of(int definition) {
    return store.value("select title,comment from replace where replace_no=" +
                       std::to_string(definition));
  }
};

TEST_F(EditorOfTwo, WhatAnotherProgramWroteMeanwhileIsWrittenOverOnlyWhenAsked) {
  const std::string asked =
      "タイトルまたは備考が他のプログラムによって変更されています。上書きしてもよろしいですか";
  const auto others_change = [this](const std::string& set) {
    store.run("update replace set " + set + " where replace_no=7");
  };
  edit(store, "詳細", [&] { others_change("title='他人',comment='他人の'"); });
  EXPECT_EQ(title_of(7), "他人|他人の") << "nothing was typed";
  edit(store, "他人", [&] {
    type("Text2", "私の");
    others_change("title='改名',comment='また'");
    for (const bool may_write : {false, false, true}) {
      EXPECT_EQ(title_of(7), "改名|また");
      press("exit");
      question(asked, may_write);
    }
    in("replaceForm");
  });
  EXPECT_EQ(title_of(7), "改名|私の") << "a title that nobody typed stays as it was changed";
  edit(store, "改名", [&] {
    type("Text1", "同名");
    others_change("title='同名'");
    press("exit");
    in("replaceForm");  // both have written the same
  });
  EXPECT_EQ(title_of(7), "同名|私の");
  store.refuse("update", "replace", "だめ");
  edit(store, "同名", [] {});  // nothing to write
  store.stop_refusing();
  others_change("comment=null");
  edit(store, "同名", [] {});
  EXPECT_EQ(title_of(7), "同名| ");
}

TEST_F(EditorOfTwo, AConditionChangedOrDeletedUnderItsDialogIsAskedAboutOrTold) {
  store.run_all(
      {"insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
       "replace_cond_no) values(32,41,32,'C','0',1),(32,42,32,'C','1',null)",
       "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,b_val) "
       "values(32,1,1,'B',null)"});
  const auto answers = [this] { return store.rows("select b_val from replace_cond where b_val"); };
  edit_at("二択", "会員/", "cond_set", [&] {
    choose("Combo1", "いいえ");
    store.run("update replace_cond set b_val=true where replace_no=32");
    for (const bool may_write : {false, false, true}) {
      EXPECT_EQ(answers().size(), 1U);
      press("Command1");
      question("この条件は他のプログラムによって変更されています。上書きしてもよろしいですか",
               may_write);
    }
    message("設定完了！");
  });
  EXPECT_EQ(answers().size(), 0U);
  for (const auto& [definition, condition, key] :
       {std::tuple{"二択", "いいえ", "41"}, {"敬称", "東（部分一致）", "11"}}) {
    edit_at(definition, condition, "cond_set", [this, key = key] {
      store.run(std::string("delete from replace_m where replace_m_no=") + key);
      press("Command1");
      message(gone);
    });
  }
}

TEST_F(EditorOfTwo, ADefinitionDeletedByAnotherProgramIsToldAndNothingIsWritten) {
  edit(store, "詳細", [this] {
    click_node("氏名");
    store.run_all(
        {"delete from replace where replace_no=7", "delete from replace_m where replace_no=7"});
    press("del_set");
    question("削除してもよろしいですか", true);
    message(gone);
    EXPECT_EQ(tree_lines(), (rows{"置換条件"}));
    press("exit");
    message(gone);
    in("replaceForm");
  });
  EXPECT_EQ(store.value("select count(*) from replace"), "9");
}

}  // namespace
