#include <gtest/gtest.h>

#include <sstream>

#include "test_store.h"
#include "tool/print_text.h"
#include "tool/store_check.h"
#include "tool/store_commands.h"
#include "tool/store_print.h"

namespace {

using lines = std::vector<std::string>;

lines faults_in(const harness::test_store& store) {
  return rule_store::faults_of(rule_store::read_store(store.connect_string()));
}

std::string printed(const harness::test_store& store,
                    rule_store::key_display keys = rule_store::key_display::hidden) {
  std::ostringstream output;
  rule_store::print_store(rule_store::read_store(store.connect_string()), keys, output);
  return output.str();
}

/// Folder 1 with definition 2: the field T1 (2/1), a condition with two lines (2/2) that leads to a
/// value (2/4), and the otherwise row (2/3).
void fill(harness::test_store& store) {
  store.run_all({
      "insert into field values('T1','氏名','T')",
      "insert into field values('D1','生年月日','D')",
      "insert into replace values(1,0,'F','folder',null,0)",
      "insert into replace values(2,1,'C','definition','a \"remark\"\nb',1)",
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id) "
      "values(2,1,0,'F','T1')",
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
      "replace_cond_no) values(2,2,1,'C','0',1),(2,3,1,'C','1',null)",
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_title,"
      "replace_type,r_text) values(2,4,2,'R','title','S','text')",
      "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_val,s_method) "
      "values(2,1,1,'S','a',1),(2,1,3,'S','b',3)",
      "update seqno set replace=2,replace_m=4,replace_cond=1",
  });
}

/// What each of the statements breaks in a store that was in order before.
struct damage {
  std::string statement;
  lines faults;
};

class StoreCheck : public testing::Test {
 protected:
  void expect_faults(const std::vector<damage>& damages) {
    for (const damage& damage : damages) {
      harness::test_store store;
      fill(store);
      store.ignore_checks();
      store.run(damage.statement);
      EXPECT_EQ(faults_in(store), damage.faults) << damage.statement;
    }
  }
};

TEST_F(StoreCheck, FindsNothingInAStoreInOrder) {
  harness::test_store store;
  EXPECT_EQ(faults_in(store), lines());
  fill(store);
  EXPECT_EQ(faults_in(store), lines());
  // A copy writes 0 where its pattern has null.
  store.run("update replace_m set replace_cond_no=0 where replace_cond_no is null");
  store.run("update replace_m set replace_cond_type=0 where use_type<>'C'");
  EXPECT_EQ(faults_in(store), lines());
  store.load_sample();
  EXPECT_EQ(faults_in(store), lines());
}

TEST_F(StoreCheck, FindsFoldersOutOfShape) {
  const std::string title(101, 'x');
  expect_faults({
      {"update replace set p_replace_no=9 where replace_no=1",
       {"replace 1: its folder 9 does not exist"}},
      {"update replace set p_replace_no=null where replace_no=1",
       {"replace 1: its folder null does not exist"}},
      {"update replace set p_replace_no=2 where replace_no=1",
       {"replace 1: lies under 2, which is no folder",
        "replace 1: lies in a loop: 1 under 2 under 1"}},
      {"update replace set p_replace_no=1 where replace_no=1",
       {"replace 1: lies in a loop: 1 under 1"}},
      {"update replace set kind='X' where replace_no=1",
       {"replace 1: unknown kind \"X\"", "replace 2: lies under 1, which is no folder"}},
      {"update replace set title='" + title + "' where replace_no=1",
       {"replace 1: a title of 101 characters"}},
      {"update seqno set replace=1,replace_m=3,replace_cond=0",
       {"seqno: replace is 1, behind the number 2 in use",
        "seqno: replace_m is 3, behind the number 4 in use",
        "seqno: replace_cond is 0, behind the number 1 in use"}},
      {"delete from seqno", {"seqno: 0 rows instead of one"}},
      {"insert into seqno values(9,9,9)", {"seqno: 2 rows instead of one"}},
  });
}

TEST_F(StoreCheck, FindsRuleTreesOutOfShape) {
  expect_faults({
      {"delete from replace where replace_no=2",
       {"replace_m 2/1: its definition does not exist",
        "replace_m 2/2: its definition does not exist",
        "replace_m 2/3: its definition does not exist",
        "replace_m 2/4: its definition does not exist"}},
      {"update replace_m set p_replace_m_no=9 where replace_m_no=4",
       {"replace_m 2/4: its parent 9 does not exist"}},
      {"update replace_m set p_replace_m_no=2 where replace_m_no=1",
       {"replace_m 2/1: a lower number than its parent 2", "replace_m 2/2: 2 children",
        "replace_m 2/1: lies in a loop: 1 under 2 under 1"}},
      {"update replace_m set p_replace_m_no=0 where replace_m_no=4", {"replace 2: 2 top rows"}},
      {"update replace set replace_m_no=7 where replace_no=2",
       {"replace_m 2/1: the top field, for which 7 is reserved"}},
      {"update replace_m set p_replace_m_no=1 where replace_m_no=4",
       {"replace_m 2/4: \"R\" under 1, which is \"F\""}},
      {"update replace_m set field_id='X' where replace_m_no=1",
       {"replace_m 2/1: there is no field \"X\""}},
      {"update replace_m set replace_type='F',r_field_id='X' where replace_m_no=4",
       {"replace_m 2/4: there is no field \"X\""}},
      {"update replace_m set replace_type='X' where replace_m_no=4",
       {"replace_m 2/4: unknown replace_type \"X\""}},
      {"update replace_m set use_type='X' where replace_m_no=4",
       {"replace_m 2/4: unknown use_type \"X\""}},
      {"delete from replace_m where replace_m_no=3",
       {"replace_m 2/1: 1 conditions and 0 otherwise rows"}},
      {"update replace_m set replace_cond_type='2' where replace_m_no=3",
       {"replace_m 2/1: 2 conditions and 0 otherwise rows",
        "replace_m 2/3: unknown replace_cond_type \"2\"",
        "replace_m 2/3: a condition without lines"}},
      {"update replace_m set replace_cond_type='0',replace_cond_no=1 where replace_m_no=3",
       {"replace_m 2/1: 2 conditions and 0 otherwise rows",
        "replace_m 2/3: shares its lines with condition 2"}},
  });
}

TEST_F(StoreCheck, FindsLinesOutOfShape) {
  std::string text;
  for (int i = 0; i < 101; ++i) text += "長";
  const std::string line = "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,";
  const std::string date = "\"D\" for a field with the attr \"T\"";
  expect_faults({
      {"delete from replace_cond", {"replace_m 2/2: a condition without lines"}},
      {line + "s_val,s_method) values(1,1,1,'S','a',1)",
       {"replace_cond 1/1/1: no condition points to it"}},
      {line + "s_val,s_method) values(2,1,2,'S','" + text + "',1)",
       {"replace_cond 2/1/2: an s_val of 101 characters"}},
      {line + "s_val,s_method) values(2,1,2,'S','a',4)",
       {"replace_cond 2/1/2: unknown s_method \"4\""}},
      {line + "s_val,s_method) values(2,1,2,'Z','a',1)",
       {"replace_cond 2/1/2: \"Z\" for a field with the attr \"T\"",
        "replace_cond 2/1/2: unknown use_type \"Z\""}},
      {line + "d_f_val,d_f_method) values(2,1,2,'D','2024/01/01',3)",
       {"replace_cond 2/1/2: " + date, "replace_cond 2/1/2: unknown d_f_method \"3\""}},
      {line + "d_f_method) values(2,1,2,'D',1)",
       {"replace_cond 2/1/2: " + date, "replace_cond 2/1/2: neither a lower nor an upper bound"}},
      {"update replace_m set field_id='D1' where replace_m_no=1",
       {"replace_cond 2/1/1: \"S\" for a field with the attr \"D\"",
        "replace_cond 2/1/3: \"S\" for a field with the attr \"D\""}},
      {"update field set attr='M'", {}},
  });
}

TEST(StorePrint, TellsTheTreesWithoutNumbers) {
  harness::test_store store;
  fill(store);
  const std::string expected =
      "folder \"folder\"\n"
      "  definition \"definition\"\n"
      "    remark \"a \\\"remark\\\"\\nb\"\n"
      "    field \"氏名\"\n"
      "      condition\n"
      "        text contains \"a\"\n"
      "        text is \"b\"\n"
      "        value \"title\"\n"
      "          text \"text\"\n"
      "      otherwise\n";
  EXPECT_EQ(printed(store), expected);

  store.run_all(
      {"update replace_m set replace_no=12,replace_m_no=replace_m_no+10,"
       "p_replace_m_no=case p_replace_m_no when 0 then 0 else p_replace_m_no+10 end,"
       "replace_cond_no=replace_cond_no+7",
       "update replace_cond set replace_no=12,replace_cond_no=replace_cond_no+7,sno=sno+1",
       "update replace set replace_no=12,p_replace_no=20 where replace_no=2",
       "update replace set replace_no=20 where replace_no=1"});
  EXPECT_EQ(printed(store), expected);
  EXPECT_NE(printed(store, rule_store::key_display::shown).find("text is \"b\" #8 #4\n"),
            std::string::npos);

  store.run("update replace set p_replace_no=20 where replace_no=20");
  EXPECT_EQ(printed(store),
            "replace rows outside the trees: 2\nreplace_m rows outside the trees: 4\n"
            "replace_cond rows outside the trees: 2\n");
}

TEST(StorePrint, PutsLinesIntoWords) {
  using rule_store::bound;
  using rule_store::line_text;
  const auto end = [](const char* value, std::int64_t method) {
    return bound{ADODB::Value(std::string(value)), ADODB::Value(method)};
  };
  rule_store::line_row line = {};
  line.use_type = "D";
  line.date_from = end("2024/01/01", 2);
  EXPECT_EQ(line_text(line), "date after \"2024/01/01\"");
  line.date_to = end("2024/12/31", 1);
  EXPECT_EQ(line_text(line), "date after \"2024/01/01\" to \"2024/12/31\"");
  line.use_type = "N";
  line.number_to = end("5", 9);
  EXPECT_EQ(line_text(line), "number upper method \"9\" \"5\"");
  line.use_type = "B";
  EXPECT_EQ(line_text(line), "unanswered");
  line.answer = ADODB::Value(false);
  EXPECT_EQ(line_text(line), "no");
  line.use_type = "X\t";
  EXPECT_EQ(line_text(line), "line of type \"X\\t\"");
}

TEST(StoreCommands, TellByTheirExitCodeHowACheckEnded) {
  harness::test_store store;
  fill(store);
  std::ostringstream output, errors;
  const auto run = [&](const std::vector<std::string_view>& arguments) {
    return rule_store::run_command(arguments, output, errors);
  };
  const std::string missing = "Driver=SQLite;Database=" + (store.folder() / "none.db").string();
  EXPECT_EQ(run({"check", store.connect_string()}), 0);
  EXPECT_EQ(output.str() + errors.str(), "");
  store.run("delete from seqno");
  EXPECT_EQ(run({"check", store.connect_string()}), 1);
  EXPECT_EQ(output.str(), "seqno: 0 rows instead of one\n");
  EXPECT_EQ(run({"check", missing}), 2);
  EXPECT_NE(errors.str().find("none.db"), std::string::npos);
  EXPECT_EQ(run({"check"}), 2);
  EXPECT_EQ(run({"print", missing}), 1);
  EXPECT_EQ(run({"print", store.connect_string(), "--other"}), 2);
}

}  // namespace
