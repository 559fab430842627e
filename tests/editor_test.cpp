#include "common_rules.h"
#include "editor/replace_create.h"

using namespace harness;

namespace {

class Editor : public common_rules {
 protected:
  Editor() { store.run_script("rich_definition.sql"); }

  /// Adds a row to 詳細.
  void rule(int key, int parent, const std::string& columns) {
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id,"
        "replace_cond_type,replace_cond_no,replace_title,replace_type) values(7," +
        std::to_string(key) + "," + std::to_string(parent) + "," + columns + ")");
  }
  static void open(const std::string& title, const std::string& button) {
    click_node(title);
    press(button);
    in("replace_create");
  }
  rows all_rules(int definition) {
    return rules(definition,
                 "replace_m_no,p_replace_m_no,use_type,field_id,replace_cond_type,"
                 "replace_cond_no,replace_title,replace_type,r_text");
  }
  rows all_lines(int definition) {
    return lines(definition,
                 "replace_cond_no,sno,use_type,s_method,s_val,d_f_method,d_f_val,"
                 "d_t_method,d_t_val,n_f_val,b_val");
  }
  std::string title_of(int definition) {
    return store.value("select title,comment from replace where replace_no=" +
                       std::to_string(definition));
  }

  const std::string needs_title = "タイトルを入力してください。";
  const std::string is_used = "そのタイトルはすでに使用されています。";
  const std::string sure = "削除してもよろしいですか";
};

const std::vector<std::string> rich_tree = {"置換条件",
                                            "  氏名",
                                            "    東（部分一致）;西%05（完全一致）",
                                            "      取引開始日",
                                            "        2005/01/31まで（含まない）",
                                            "          誕生",
                                            "        以外",
                                            "    以外",
                                            "      様'%10"};

TEST_F(Editor, ShowsTitleRemarkAndRulesAndStoresOnExit) {
  edit(store, "詳細", [] {
    EXPECT_EQ(focused_control(), "Text1");
    EXPECT_GT(control("Text2").height(), control("Text1").height());
    EXPECT_EQ(tree_lines(), rich_tree);
    EXPECT_EQ(pictures(),
              (rows{"root", "open", "cond", "open", "cond", "val", "cond", "cond", "val"}));
    EXPECT_EQ(tree().indexAt(QPoint(1, 1)), node("置換条件"));
    EXPECT_EQ(kinds(), (rows{"", "項目", "条件", "項目", "条件", "置換値", "以外の条件",
                             "以外の条件", "置換値"}));
    tree().collapse(node("氏名"));
    EXPECT_EQ(pictures()[1], "close");
    tree().expandAll();
    EXPECT_EQ(enabled_buttons(), "exit");
    EXPECT_EQ(text_of("Text1") + "|" + text_of("Text2"), "詳細|人'の%10");
    type("Text1", "敬'称");
    type("Text2", "");
  });
  EXPECT_EQ(title_of(7), "敬'称| ");
}

TEST_F(Editor, SelectionAllowsWhatKeepsTheShape) {
  rule(20, 7, "'C',null,'0',null,null,null");
  rule(21, 16, "'R',null,null,null,'置換条件','S'");
  rule(22, 20, "'X',null,null,null,null,null");
  const auto buttons_at = [](const std::string& path) {
    click_node(path);
    return enabled_buttons();
  };
  edit(store, "詳細", [&] {
    EXPECT_EQ(buttons_at("置換条件"), "exit");
    EXPECT_EQ(buttons_at("氏名"), "cond_set del_set exit");
    EXPECT_EQ(buttons_at("東（部分一致）;西%05（完全一致）"), "cond_set del_set exit");
    EXPECT_EQ(buttons_at("2005/01/31まで（含まない）"), "cond_set del_set exit");
    EXPECT_EQ(buttons_at("様'%10"), "cond_val_set del_set exit");
    EXPECT_EQ(buttons_at("取引開始日/以外"), "del_set exit");
    EXPECT_EQ(buttons_at("置換条件/置換条件"), "exit");  // known by its text
  });
  store.run("delete from replace_m where replace_m_no in (21,22) and replace_no=7");
  edit(store, "詳細", [&] {
    EXPECT_EQ(buttons_at("取引開始日/以外"), "addr_set cond_val_set del_set exit");
    EXPECT_EQ(buttons_at("氏名/"), "addr_set cond_set cond_val_set del_set exit");  // no lines
  });
  edit(store, "空", [&] { EXPECT_EQ(buttons_at("置換条件"), "addr_set cond_val_set exit"); });
}

TEST_F(Editor, ShowsRowsThatOtherProgramsWrote) {
  store.run_script("foreign_rows.sql");
  browse(store, [] {
    click_node("詳細");
    press("update");
    message("Use_type:ERROR");
    const rows shown = tree_lines();
    EXPECT_EQ(rows(shown.end() - 4, shown.end()),
              (rows{"      gone", "        会員", "          いいえ後（先頭一致）",
                    "          0.1から12345678901まで（含まない）;5"}));
  });
}

TEST_F(Editor, LeavesOutAndTellsWhatIsNestedTooDeep) {
  const std::string chain =
      " with recursive n(i) as (select 100 union all select i+1 from n where i<2101) select ";
  store.run("insert into replace(replace_no,p_replace_no,kind,title)" + chain +
            "i,case when i=100 then 3 else i-1 end,'F','段' from n");
  // Each row stands before its parent.
  store.run("insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id)" +
            chain + "7,i,case when i=2101 then 13 else i+1 end,'F','F1' from n");
  browse(store, [] {
    const std::string folders_too_deep =
        "フォルダの階層が深すぎるため、2000階層より下は表示されません。";
    message(folders_too_deep);
    const auto levels = [](const rows& lines) {
      std::size_t most = 0;
      for (const std::string& line : lines) most = std::max(most, line.find_first_not_of(' ') / 2);
      return most;
    };
    EXPECT_EQ(levels(tree_lines()), 2000U);
    click_node(node("詳細"));
    press("update");
    message("分岐の階層が深すぎるため、2000階層より下は表示されません。");
    EXPECT_EQ(levels(tree_lines()), 2000U);
    press("exit");
    message(folders_too_deep);
  });
}

TEST_F(Editor, ItsPublicOperationsReadARowAndDeleteAnOnlyChild) {
  ADODB::Connection conn;
  conn.Open(store.connect_string());
  const auto row = conn.Execute("select 'o''clock' as a, null as b, 12 as c, '' as d");
  using ta_vorlumine::replace_create;
  const auto value = replace_create::GetRecordValue;
  const auto number = replace_create::GetRecordNum;
  EXPECT_EQ(value(row, "a") + "|" + value(row, "b") + "|" + value(row, "none"), "o''clock||");
  EXPECT_EQ(number(row, "c") + number(row, "b") + number(row, "d") + number(row, "none"), "12000");
  edit(store, "敬称", [] {
    for (const int parent : {12, 10}) replace_create::delete_from_cond(1, parent);
  });
  EXPECT_EQ(rules(1, "replace_m_no"), (rows{"10", "11", "12"})) << "the one that was alone went";
}

TEST_F(Editor, ChecksTheTitleInItsOrder) {
  edit(store, "詳細", [this] {
    const std::pair<std::string, std::string> refused[] = {
        {std::string(101, 'x'), "タイトルが文字列長すぎます"},
        {"氏名", "アドレス帳と同じ名称は設定できません。"},
        {"", needs_title}};
    for (const auto& [title, why] : refused) {
      type("Text1", title);
      click_node("置換条件");
      press("exit");
      message(why);
      EXPECT_EQ(focused_control(), "Text1");
    }
    type("Text1", "空");  // a title in use is no matter for a definition that exists
  });
  EXPECT_EQ(title_of(7), "空|人'の%10");
}

TEST_F(Editor, AnUntouchedNewDefinitionGoesAwayAgain) {
  browse(store, [this] {
    open("宛名", "add");
    EXPECT_EQ(enabled_buttons(), "cond_val_set exit");
    EXPECT_EQ(text_of("Text1") + text_of("Text2"), "");
    EXPECT_EQ(store.value("select * from replace where replace_no=34"), "34|3|C| |null|41");
    act([] { top_window().close(); });  // the frame runs exit, too
    in("replaceForm");
    EXPECT_EQ(tree_lines().size(), 11U);
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
        "values(34,5,0,'F','F1')");  // left behind by another program
    open("宛名", "add");
    EXPECT_EQ(tree_lines(), rows{"置換条件"});
    type("Text1", "敬称");
    press("exit");
    message(is_used);
    EXPECT_EQ(focused_control(), "Text1");
    type("Text1", "宛名");  // folders don't count
    key(Qt::Key_Escape);
    press("exit");
    in("replaceForm");
    EXPECT_EQ(tree_lines()[7], "    宛名");
  });
  EXPECT_EQ(store.rows("select replace_no,title,comment from replace where replace_no>33"),
            (rows{"35|宛名| "}));
  EXPECT_EQ(counters(), "35|40|7");
}

TEST_F(Editor, CopiesADefinitionDeepUnderNewKeys) {
  // What a definition of that number has left behind.
  store.run(
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type) values(34,3,0,'F')");
  browse(store, [this] {
    open("詳細", "copy");
    EXPECT_EQ(tree_lines(), rich_tree);
    EXPECT_EQ(text_of("Text1"), "詳細");
    press("exit");
    message(is_used);
    type("Text1", "詳細の写し");
    press("exit");
    open("空", "copy");
    type("Text1", "空の写し");
  });
  EXPECT_EQ(store.rows("select * from replace where replace_no>33 order by 1"),
            (rows{"34|3|C|詳細の写し|人'の%10|41", "35|0|C|空の写し| |52"}));
  EXPECT_EQ(all_rules(34), (rows{"41|0|F|F1|0|0|||", "42|41|C||0|8|||", "46|41|C||1|0|||",
                                 "47|46|R||0|0|様'%10|S|%11\n'😀%01", "48|42|F|F3|0|0|||",
                                 "49|48|C||0|9|||", "50|48|C||1|0|||", "51|49|R||0|0|誕生|S|"}));
  EXPECT_EQ(all_lines(34), (rows{"8|1|S|1|東|null|1900/01/01|null|1900/01/01|0|null",
                                 "8|3|S|3|西%05|null|1900/01/01|null|1900/01/01|0|null",
                                 "8|4|S|9|消える|null|1900/01/01|null|1900/01/01|0|null",
                                 "9|1|D|null||null|null|2|2005/01/31|0|null"}));
  EXPECT_EQ(counters(), "35|51|11") << "a copy without rules draws no rule key";
}

TEST_F(Editor, ATitleOfTwoLinesIsShownAndGoesBackAsItIs) {
  store.run(ADODB::sql("update replace set title='<title>' where replace_no=7", {"一\n二"}));
  browse(store, [this] {
    open("一 二", "update");
    EXPECT_EQ(text_of("Text1"), "一\n二");
    control("Text2").setFocus();
    compose("備\n考");
    EXPECT_EQ(text_of("Text2").find('\n'), std::string::npos) << "typed, a box takes one line";
    type("Text2", "備考");
  });
  EXPECT_EQ(store.value("select title from replace where replace_no=7"), "一\n二");
}

// An older program's bytes, which a file takes and a server refuses.
TEST_F(Editor, BytesThatAreNoTextGoBackAsTheyCameAndIntoACopy) {
  if (on_server()) return;
  const std::string odd = "cast(x'93FA41' as text)";
  for (const auto& [columns, where] : {std::pair("field set field_name", "attr='M'"),
                                       {"replace set title", "replace_no in(3,7)"},
                                       {"replace set comment", "true"},
                                       {"replace_m set replace_title", "use_type='R'"},
                                       {"replace_m set r_text", "use_type='R'"},
                                       {"replace_cond set s_val", "use_type='S'"}})
    store.run("update " + std::string(columns) + "=" + odd + " where " + where);
  store.run("update replace_m set replace_type='F',r_field_id='F2' where replace_m_no=17");
  const auto leave_as_it_is = [](const std::string& node, const std::string& button) {
    click_node(node);
    press(button);
    if (button == "cond_set") {
      click_cell(1, 5);
      key(Qt::Key_F2);
      key(Qt::Key_Return);
    }
    press("Command1");
    if (button == "cond_set") message("設定完了！");
  };
  const std::string shown = "\uFFFD\uFFFDA";
  browse(store, [&] {
    click_node("条件設定/" + shown);
    press("updatef");
    press("Command2");
    click_node(shown + "/" + shown);
    press("copy");
    type("Text1", "写し");
    leave_as_it_is(shown + "（部分一致）;" + shown + "（完全一致）", "cond_set");
    leave_as_it_is("以外/" + shown, "cond_val_set");
    leave_as_it_is("2005/01/31まで（含まない）/" + shown, "cond_val_set");
    press("exit");
    EXPECT_EQ(tree().currentIndex().data(), "写し") << "the keyboard goes on at the copy";
  });
  EXPECT_EQ(store.rows("select replace_no,title=" + odd + ",comment=" + odd +
                       " from replace where replace_no in(3,7,34)"),
            (rows{"3|1|1", "7|1|1", "34|0|1"}));
  EXPECT_EQ(rules(34, "replace_title=" + odd + ",r_text=" + odd + ",r_field_id", "use_type='R'"),
            (rows{"1|1| ", "1|1|F2"}));
  EXPECT_EQ(lines(34, "s_val=" + odd), (rows{"1", "1", "1", "0"}));
}

TEST_F(Editor, ACopyThatFindsNoKeysLeftWritesNothingAndTakesTheLastOnes) {
  for (const char* counter : {"replace=32767", "replace_m=32761", "replace_cond=32766"}) {
    store.run("update seqno set replace=33,replace_m=40,replace_cond=7");
    store.run(std::string("update seqno set ") + counter);
    const std::string before = counters();
    browse(store, [] {
      click_node("詳細");
      press("copy");
      message("番号が上限の32767に達したため、これ以上登録できません。");
      in("replaceForm");
    });
    EXPECT_EQ(counters(), before);
    EXPECT_EQ(store.value("select max(replace_no) from replace"), "33") << counter;
    EXPECT_EQ(store.value("select max(replace_no) from replace_m"), "33") << counter;
  }
}

TEST_F(Editor, DeletesBranchesAndKeepsTheOtherwiseBranchWithTheLastCondition) {
  const auto del = [this](const std::string& path) {
    click_node(path);
    press("del_set");
    question(sure, true);
    EXPECT_EQ(enabled_buttons(), "exit");
    EXPECT_EQ(selected_node(), "");
  };
  edit(store, "詳細", [&] {
    click_node("氏名");
    press("del_set");
    question(sure, false);
    EXPECT_EQ(enabled_buttons(), "cond_set del_set exit");
    click_node("氏名/以外");
    press("del_set");
    question(sure, true);
    message("条件あるときは以外条件が削除出来ません");
    EXPECT_EQ(enabled_buttons(), "exit");
    EXPECT_EQ(tree_lines().size(), 9U);
    rule(20, 7, "'C',null,'0',3,null,null");  // not shown yet
    store.run(
        "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_method,s_val) "
        "values(7,3,1,'S',2,'北')");
    del("東（部分一致）;西%05（完全一致）");
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名", "    以外", "      様'%10"}));
    EXPECT_EQ(all_lines(7).size(), 1U);
    del("様'%10");
    EXPECT_EQ(all_rules(7).size(), 3U);
  });
  edit(store, "詳細", [&] {
    del("北（先頭一致）");
    EXPECT_EQ(tree_lines(), (rows{"置換条件", "  氏名"}));
  });
  EXPECT_EQ(all_rules(7), (rows{"7|0|F|F1|null|null|null|null|null"}));
  EXPECT_TRUE(all_lines(7).empty());
  EXPECT_EQ(all_lines(1).size(), 1U);
}

TEST_F(Editor, ATreeThatCouldntBeLoadedDoesntMakeADefinitionEmpty) {
  const std::string longest(100, 'x');
  browse(store, [&] {
    open("宛名", "add");
    click_node("置換条件");
    press("cond_val_set");
    in("set_value");
    type("title_txt", "様");
    store.run_all(
        {"alter table field rename to away",
         "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
         "values(34,41,0,'F','F1')"});
    press("Command2");
    EXPECT_NE(read_message().find("field"), std::string::npos);
    EXPECT_EQ(tree_lines(), (rows{"置換条件"}));
    store.run("alter table away rename to field");
    press("exit");
    message(needs_title);
    type("Text1", longest);
  });
  EXPECT_EQ(title_of(34), longest + "| ");
  EXPECT_EQ(all_rules(34).size(), 1U);
}

}  // namespace
