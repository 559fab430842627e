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
