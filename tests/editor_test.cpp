#include <gtest/gtest.h>

#include <QWidget>

#include "browser/replace_form.h"
#include "editor/replace_create.h"
#include "harness.h"

using namespace harness;
using rows = std::vector<std::string>;

namespace {

/// A store with one rich definition, 敬称 (7), and a field of each kind that has a dialog.
class Editor : public testing::Test {
 protected:
  void SetUp() override {
    store.run_all({
        "insert into field values('N','氏名','T'),('D','誕生日','D'),('A','年齢','N'),"
        "('B','会員','B')",
        "insert into replace values(1,0,'F','宛名',null,0)",
        "insert into replace values(7,1,'C','敬称','人''の%10',7)",
        "insert into replace values(8,0,'C','空の定義',null,9)",
    });
    rule(7, 0, "'F','N',null,null,null,null");
    rule(8, 7, "'C',null,'0',1,null,null");
    rule(12, 7, "'C',null,'1',null,null,null");
    rule(13, 12, "'R',null,null,null,'様''%10','S'");
    rule(14, 8, "'F','D',null,null,null,null");
    rule(15, 14, "'C',null,'0',2,null,null");
    rule(16, 14, "'C',null,'1',null,null,null");
    rule(17, 15, "'R',null,null,null,'誕生','S'");
    store.run("update replace_m set r_text='%11\n''😀%01' where replace_m_no=13");
    store.run_all({
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
        "values(7,1,1,'S',1,'東'),(7,1,3,'S',3,'西%05'),(7,1,4,'S',9,'消える')",
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,d_t_method,d_t_val) "
        "values(7,2,1,'D',2,'2005/01/31')",
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
        "values(99,1,1,'S',1,'よその定義')",
        "update seqno set replace=8,replace_m=30,replace_cond=5",
    });
  }

  void rule(int key, int parent, const std::string& columns) {
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id,"
        "replace_cond_type,replace_cond_no,replace_title,replace_type) values(7," +
        std::to_string(key) + "," + std::to_string(parent) + "," + columns + ")");
  }

  static user opened(const std::string& title, const std::string& button = "update") {
    return user().in("replaceForm", [=] {
      click_node(title);
      press(button);
    });
  }
  void play(user& user) {
    user.in("replaceForm", [] { press("close"); }).browse(store);
  }
  void look(const std::string& title, const std::function<void()>& deed) {
    user script = opened(title);
    script.in("replace_create", [deed] {
      deed();
      press("exit");
    });
    play(script);
  }
  rows rules(int definition) {
    return store.rows(
        "select replace_m_no,p_replace_m_no,use_type,field_id,replace_cond_type,"
        "replace_cond_no,replace_title,replace_type,r_text from replace_m "
        "where replace_no=" +
        std::to_string(definition) + " order by 1");
  }
  rows lines(int definition) {
    return store.rows(
        "select replace_cond_no,sno,use_type,s_method,s_val,d_f_method,d_f_val,"
        "d_t_method,d_t_val,n_f_val,b_val from replace_cond where replace_no=" +
        std::to_string(definition) + " order by 1,2");
  }

  test_store store;
};

const rows rich_tree = {"置換条件",
                        "  氏名",
                        "    東（部分一致）;西%05（完全一致）",
                        "      誕生日",
                        "        2005/01/31まで（含まない）",
                        "          誕生",
                        "        以外",
                        "    以外",
                        "      様'%10"};

TEST_F(Editor, ShowsTitleRemarkAndRulesAndStoresOnExit) {
  look("敬称", [] {
    EXPECT_EQ(focused_control(), "Text1");
    EXPECT_EQ(tree_lines(), rich_tree);
    EXPECT_EQ(enabled_buttons(), "exit");
    EXPECT_EQ(text_of("Text1") + "|" + text_of("Text2"), "敬称|人'の%10");
    type("Text1", "敬'称");
    type("Text2", "");
  });
  EXPECT_EQ(store.value("select title,comment from replace where replace_no=7"), "敬'称| ");
}

TEST_F(Editor, SelectionAllowsWhatKeepsTheShape) {
  rule(20, 7, "'C',null,'0',null,null,null");
  rule(21, 16, "'R',null,null,null,'置換条件','S'");
  rule(22, 20, "'X',null,null,null,null,null");
  look("敬称", [] {
    const auto buttons_at = [](const std::string& path) {
      click_node(path);
      return enabled_buttons();
    };
    EXPECT_EQ(buttons_at("置換条件"), "exit");
    EXPECT_EQ(buttons_at("氏名"), "cond_set del_set exit");
    EXPECT_EQ(buttons_at("東（部分一致）;西%05（完全一致）"), "cond_set del_set exit");
    EXPECT_EQ(buttons_at("2005/01/31まで（含まない）"), "cond_set del_set exit");
    EXPECT_EQ(buttons_at("様'%10"), "cond_val_set del_set exit");
    EXPECT_EQ(buttons_at("誕生日/以外"), "del_set exit");
    EXPECT_EQ(buttons_at("置換条件/置換条件"), "exit");  // known by its text
  });
  store.run("delete from replace_m where replace_m_no in (21,22)");
  look("敬称", [] {
    click_node("誕生日/以外");
    EXPECT_EQ(enabled_buttons(), "addr_set cond_val_set del_set exit");
    click_node("氏名/");  // the condition without lines has no text
    EXPECT_EQ(enabled_buttons(), "addr_set cond_set cond_val_set del_set exit");
  });
  look("空の定義", [] {
    click_node("置換条件");
    EXPECT_EQ(enabled_buttons(), "addr_set cond_val_set exit");
  });
}

TEST_F(Editor, ShowsRowsThatOtherProgramsWrote) {
  rule(40, 41, "'F','B',null,null,null,null");     // comes before its parent
  rule(41, 12, "'F','gone',null,null,null,null");  // a field that is no more
  rule(42, 40, "'C',null,'0',4,null,null");
  rule(43, 99, "'R',null,null,null,'親なし','S'");
  rule(44, 40, "'C',null,'0',3,null,null");
  store.run_all({
      "delete from replace_m where replace_m_no=13",
      "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
      "values(7,4,1,'S',1,'前'),(7,4,3,'S',2,'後')",
      "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,b_val) "
      "values(7,4,2,'B',False)",
      "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,n_f_val,n_f_method,"
      "n_t_val,n_t_method) values(7,3,1,'N',0.1,1,12345678901,2),(7,3,2,'N',5,7,null,null)",
      "insert into replace_cond(replace_no,replace_cond_no,sno,use_type) values(7,3,3,'Q')",
      "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,b_val) "
      "values(7,3,4,'B',null)",
  });
  user script = opened("敬称");
  script.message("Use_type:ERROR").in("replace_create", [] {
    const rows shown = tree_lines();
    EXPECT_EQ(rows(shown.end() - 4, shown.end()),
              (rows{"      gone", "        会員", "          いいえ後（先頭一致）",
                    "          0.1から12345678901まで（含まない）;5"}));
    press("exit");
  });
  play(script);
}

TEST_F(Editor, ChecksTheTitleInItsOrder) {
  user script = opened("敬称");
  const auto refused = [&](const std::string& title, const std::string& message) {
    script.in("replace_create", [title] {
      type("Text1", title);
      press("exit");
    });
    script.message(message);
    script.in("replace_create", [] { EXPECT_EQ(focused_control(), "Text1"); });
  };
  refused(std::string(101, 'x'), "タイトルが文字列長すぎます");
  refused("氏名", "アドレス帳と同じ名称は設定できません。");
  refused("", "タイトルを入力してください。");
  script.in("replace_create", [] {
    type("Text1", "空の定義");  // a title in use is no matter for a definition that exists
    press("exit");
  });
  play(script);
  EXPECT_EQ(store.value("select title from replace where replace_no=7"), "空の定義");
}

TEST_F(Editor, ADefinitionThatAnotherProgramHasFilledNeedsATitle) {
  user script = opened("空の定義");
  script.in("replace_create", [this] {
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id)"
        " values(8,31,0,'F','A')");
    type("Text1", "");
    press("exit");
  });
  script.message("タイトルを入力してください。").in("replace_create", [] {
    type("Text1", "満ちた定義");
    press("exit");
  });
  play(script);
  EXPECT_EQ(store.value("select title from replace where replace_no=8"), "満ちた定義");
}

TEST_F(Editor, AnUntouchedNewDefinitionGoesAwayAgain) {
  user script = opened("宛名", "add");
  script.in("replace_create", [this] {
    EXPECT_EQ(enabled_buttons(), "cond_val_set exit");
    EXPECT_EQ(store.value("select * from replace where replace_no=9"), "9|1|C| |null|31");
    top_window().close();  // the frame runs exit, too
  });
  script.in("replaceForm", [] {
    click_node("宛名");
    press("add");
  });
  script.in("replace_create", [] {
    type("Text1", "敬称");
    press("exit");
  });
  script.message("そのタイトルはすでに使用されています。");
  script.in("replace_create", [] {
    type("Text1", "宛名");  // folders don't count
    key(Qt::Key_Escape);
  });
  play(script);
  EXPECT_EQ(store.rows("select replace_no,title,comment from replace where replace_no>8"),
            (rows{"10|宛名| "}));
  EXPECT_EQ(store.value("select * from seqno"), "10|30|5");
}

TEST_F(Editor, CopiesADefinitionDeepUnderNewKeys) {
  user script = opened("敬称", "copy");
  script.in("replace_create", [] {
    EXPECT_EQ(tree_lines(), rich_tree);
    EXPECT_EQ(text_of("Text1"), "敬称");
    press("exit");
  });
  script.message("そのタイトルはすでに使用されています。");
  script.in("replace_create", [] {
    type("Text1", "敬称の写し");
    press("exit");
  });
  play(script);
  EXPECT_EQ(store.value("select * from replace where replace_no=9"),
            "9|1|C|敬称の写し|人'の%10|31");
  EXPECT_EQ(rules(9), (rows{"31|0|F|N|0|0|||", "32|31|C||0|6|||", "36|31|C||1|0|||",
                            "37|36|R||0|0|様'%10|S|%11\n'😀%01", "38|32|F|D|0|0|||",
                            "39|38|C||0|7|||", "40|38|C||1|0|||", "41|39|R||0|0|誕生|S|"}));
  EXPECT_EQ(lines(9), (rows{"6|1|S|1|東|null|1900/01/01|null|1900/01/01|0|null",
                            "6|3|S|3|西%05|null|1900/01/01|null|1900/01/01|0|null",
                            "6|4|S|9|消える|null|1900/01/01|null|1900/01/01|0|null",
                            "7|1|D|null||null|null|2|2005/01/31|0|null"}));
  EXPECT_EQ(store.value("select * from seqno"), "9|41|8");
}

TEST_F(Editor, ACopyWithoutRulesDrawsNoRuleKey) {
  user script = opened("空の定義", "copy");
  script.in("replace_create", [] {
    type("Text1", "空の写し");
    press("exit");
  });
  play(script);
  EXPECT_EQ(store.rows("select replace_no,title,replace_m_no from replace where replace_no>8"),
            (rows{"9|空の写し|31"}));
  EXPECT_EQ(store.value("select * from seqno"), "9|30|6");
}

TEST_F(Editor, DeletesBranchesAndKeepsTheOtherwiseBranchWithTheLastCondition) {
  rule(20, 7, "'C',null,'0',3,null,null");
  store.run(
      "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
      "values(7,3,1,'S',2,'北')");
  user script = opened("敬称");
  const auto del = [&](const std::string& path, const std::function<void()>& then) {
    script.in("replace_create", [path] {
      click_node(path);
      press("del_set");
    });
    script.question("削除してもよろしいですか", true);
    if (path == "氏名/以外") script.message("条件あるときは以外条件が削除出来ません");
    script.in("replace_create", [then] {
      EXPECT_EQ(enabled_buttons(), "exit");
      then();
    });
  };
  script.in("replace_create", [] {
    click_node("氏名");
    press("del_set");
  });
  script.question("削除してもよろしいですか", false);
  del("氏名/以外", [] { EXPECT_EQ(tree_lines().size(), 10U); });
  del("東（部分一致）;西%05（完全一致）", [] {
    EXPECT_EQ(tree_lines(),
              (rows{"置換条件", "  氏名", "    北（先頭一致）", "    以外", "      様'%10"}));
  });
  del("北（先頭一致）", [] { EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名"})); });
  script.in("replace_create", [] { press("exit"); });
  play(script);
  EXPECT_EQ(rules(7), (rows{"7|0|F|N|null|null|null|null|null"}));
  EXPECT_TRUE(lines(7).empty());
  EXPECT_EQ(lines(99).size(), 1U);
}

TEST_F(Editor, TheOtherwiseBranchStaysForAConditionThatTheTreeDoesntShowYet) {
  user script = opened("敬称");
  script.in("replace_create", [this] {
    click_node("東（部分一致）;西%05（完全一致）");
    rule(20, 7, "'C',null,'0',3,null,null");
    press("del_set");
  });
  script.question("削除してもよろしいですか", true);
  script.in("replace_create", [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    以外", "      様'%10"}));
    press("exit");
  });
  play(script);
  EXPECT_EQ(rules(7).size(), 4U);
}

TEST_F(Editor, ATreeThatCouldntBeLoadedDoesntMakeADefinitionEmpty) {
  user script = opened("宛名", "add");
  script.in("replace_create", [] {
    click_node("置換条件");
    press("cond_val_set");
  });
  script.in("set_value", [this] {
    type("title_txt", "様");
    store.run("alter table field rename to away");
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
        "values(9,31,0,'F','N')");
    press("Command2");
  });
  script.whatever("the engine's refusal", [] { key(Qt::Key_Return); });
  script.in("replace_create", [this] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件"}));
    store.run("alter table away rename to field");
    press("exit");
  });
  script.message("タイトルを入力してください。");
  script.in("replace_create", [] {
    type("Text1", "新しい");
    press("exit");
  });
  play(script);
  EXPECT_EQ(rules(9).size(), 1U);
}

TEST_F(Editor, ADefinitionDeletedByAnotherProgramIsToldAndNothingIsWritten) {
  const std::string gone = "対象の行は他のプログラムによって削除されています。一覧を読み直します。";
  user script = opened("敬称");
  script.in("replace_create", [this] {
    click_node("氏名");
    store.run_all(
        {"delete from replace where replace_no=7", "delete from replace_m where replace_no=7"});
    press("del_set");
  });
  script.question("削除してもよろしいですか", true);
  script.message(gone);
  script.in("replace_create", [] {
    EXPECT_EQ(tree_lines(), (rows{"置換条件"}));
    press("exit");
  });
  script.message(gone);
  play(script);
  EXPECT_EQ(store.rows("select replace_no from replace"), (rows{"1", "8"}));
}

TEST_F(Editor, BranchOperationsTouchTheirOwnRowsAlone) {
  using namespace ta_vorlumine;
  auto& shared = platform::form<replaceForm>();
  auto& editor = platform::form<replace_create>();
  shared.conn.Open(store.connect_string());
  shared.f_replace_no = 7;
  editor.delete_from_cond(7, 7);  // two children: stays
  EXPECT_EQ(rules(7).size(), 8U);
  editor.delete_from_cond(7, 12);
  EXPECT_EQ(rules(7).size(), 7U);
  editor.DeleteChild("99");
  EXPECT_EQ(rules(7).size(), 7U);
  editor.DeleteChild("8");
  EXPECT_EQ(rules(7).size(), 2U);
  EXPECT_EQ(lines(7).size(), 3U);  // the lines of the row itself are the caller's
  shared.conn.Close();
}

}  // namespace
