#include <gtest/gtest.h>

#include <fstream>
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

const std::string new_line = "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,";

void fill(harness::test_store& store) {
  store.run_script("checked_rules.sql");
}

void fill_all(harness::test_store& store) {
  fill(store);
  store.run_script("checked_ranges.sql");
}

std::string title(const std::string& changes, int no) {
  return "update replace set " + changes + " where replace_no=" + std::to_string(no);
}

std::string rule(const std::string& changes, int no) {
  return "update replace_m set " + changes + " where replace_m_no=" + std::to_string(no);
}

/// Changes the first line of its kind.
std::string line(const std::string& changes, char use_type) {
  return "update replace_cond set " + changes + " where sno=1 and use_type='" + use_type + "'";
}

/// What a statement breaks in a store that was in order before.
struct damage {
  std::string statement;
  lines faults;
};

void expect_faults(const std::vector<damage>& damages) {
  harness::test_store store;
  store.ignore_checks();
  for (const damage& damage : damages) {
    for (const char* table : {"replace", "replace_m", "replace_cond", "field", "seqno"})
      store.run(std::string("delete from ") + table);
    store.run("insert into seqno values(0,0,0)");
    fill_all(store);
    store.run(damage.statement);
    EXPECT_EQ(faults_in(store), damage.faults) << damage.statement;
  }
}

TEST(StoreCheck, FindsNothingInAStoreInOrder) {
  harness::test_store store;
  EXPECT_EQ(faults_in(store), lines());
  fill_all(store);
  EXPECT_EQ(faults_in(store), lines());
  // What a copy writes where its pattern has null.
  store.run_all(
      {"update replace_m set replace_cond_no=0 where replace_cond_no is null",
       "update replace_m set replace_cond_type=0 where use_type<>'C'",
       "update replace_cond set s_val='',n_t_val=0,n_t_method=null where use_type='N'",
       "update replace_cond set d_f_val='1900/01/01',n_f_val=0,n_t_val=0 where use_type='S'"});
  EXPECT_EQ(faults_in(store), lines());
  store.load_sample();
  EXPECT_EQ(faults_in(store), lines());
}

TEST(StoreCheck, FindsTitlesAndCountersOutOfShape) {
  expect_faults({
      {title("p_replace_no=9", 1), {"replace 1: its folder 9 does not exist"}},
      {title("p_replace_no=null", 1), {"replace 1: its folder null does not exist"}},
      {title("p_replace_no=2", 1),
       {"replace 1: lies under 2, which is no folder",
        "replace 1: lies in a loop: 1 under 2 under 1"}},
      {title("kind='X'", 1),
       {"replace 1: unknown kind \"X\"", "replace 2: lies under 1, which is no folder"}},
      {title("title='" + std::string(101, 'x') + "'", 1), {"replace 1: a title of 101 characters"}},
      {title("replace_m_no=1", 1), {"replace 1: a folder with the rule number 1"}},
      {title("comment=' '", 1), {"replace 1: a folder with the remark \" \""}},
      {"update replace set title='氏名' where replace_no in (1,2)",
       {"replace 2: has the name of a field as its title, \"氏名\""}},
      {title("replace_m_no=null", 4), {"replace 4: reserves no number for its top field"}},
      {title("replace_m_no=15", 4),
       {"replace 4: reserves the number 15 for its top field, far ahead of 13, the last one "
        "drawn"}},
      {title("replace_no=32768", 4),
       {"replace 32768: its number lies outside 1 to 32767",
        "seqno: replace is 4, behind the number 32768 in use"}},
      {"update seqno set replace=1,replace_m=3,replace_cond=0",
       {"seqno: replace is 1, behind the number 4 in use",
        "seqno: replace_m is 3, behind the number 13 in use",
        "seqno: replace_cond is 0, behind the number 4 in use"}},
      {"update seqno set replace_m=32768",
       {"seqno: replace_m is 32768, above 32767, the highest number"}},
      {"delete from seqno", {"seqno: 0 rows instead of one"}},
      {"insert into seqno values(9,99,9)", {"seqno: 2 rows instead of one"}},
  });
}

TEST(StoreCheck, FindsRuleTreesOutOfShape) {
  expect_faults({
      {"insert into replace_m(replace_no,replace_m_no) values(9,1)",
       {"replace_m 9/1: its definition does not exist"}},
      {rule("p_replace_m_no=9", 4), {"replace_m 2/4: its parent 9 does not exist"}},
      {rule("p_replace_m_no=2", 1),
       {"replace_m 2/1: a lower number than its parent 2", "replace_m 2/2: 2 children",
        "replace_m 2/1: lies in a loop: 1 under 2 under 1"}},
      {rule("p_replace_m_no=0", 4), {"replace 2: 2 top rows"}},
      {title("replace_m_no=7", 2), {"replace_m 2/1: the top field, for which 7 is reserved"}},
      {rule("p_replace_m_no=1", 4), {"replace_m 2/4: \"R\" under 1, which is \"F\""}},
      {rule("field_id='X'", 1), {"replace_m 2/1: there is no field \"X\""}},
      {rule("use_type='X'", 4), {"replace_m 2/4: unknown use_type \"X\""}},
      {"delete from replace_m where replace_m_no=3",
       {"replace_m 2/1: 1 conditions and 0 otherwise rows"}},
      {rule("replace_cond_type='2'", 3),
       {"replace_m 2/1: 2 conditions and 0 otherwise rows",
        "replace_m 2/3: unknown replace_cond_type \"2\"",
        "replace_m 2/3: a condition without lines"}},
      {rule("replace_cond_type='0',replace_cond_no=1", 3),
       {"replace_m 2/1: 2 conditions and 0 otherwise rows",
        "replace_m 2/3: shares its lines with condition 2"}},
      {rule("replace_cond_no=1", 3),
       {"replace_m 2/3: has the condition number 1, but is no condition with lines"}},
      {rule("replace_m_no=32768", 4),
       {"replace_m 2/32768: its number lies outside 1 to 32767",
        "seqno: replace_m is 13, behind the number 32768 in use"}},
      {"insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_cond_type,"
       "replace_cond_no) values(3,1,11,'C','0',5)",
       {"replace_m 3/1: a lower number than its parent 11",
        "replace_m 3/1: a condition without lines",
        "replace_m 3/11: a yes/no field with 2 conditions",
        "seqno: replace_cond is 4, behind the number 5 in use"}},
      {rule("replace_title=''", 4), {"replace_m 2/4: a value without a title"}},
      {rule("r_text=null", 4), {"replace_m 2/4: a value without content"}},
      {rule("replace_type='T',r_text_filename=' '", 4), {"replace_m 2/4: a value without content"}},
      {rule("replace_type='X'", 4), {"replace_m 2/4: unknown replace_type \"X\""}},
      {rule("replace_type='F',r_field_id='X'", 4), {"replace_m 2/4: there is no field \"X\""}},
      {rule("replace_type='F',r_field_id='T1'", 4),
       {"replace_m 2/4: its title \"title\" is not \"氏名\", the name of its field"}},
  });
}

TEST(StoreCheck, FindsLinesOutOfShape) {
  std::string text;
  for (int i = 0; i < 101; ++i) text += "長";
  expect_faults({
      {"delete from replace_cond where replace_no=2", {"replace_m 2/2: a condition without lines"}},
      {new_line + "s_val,s_method) values(1,1,1,'S','a',1)",
       {"replace_cond 1/1/1: no condition points to it"}},
      {line("sno=0", 'S'), {"replace_cond 2/1/0: its number lies outside 1 to 32767"}},
      {line("use_type='Z'", 'S'),
       {"replace_cond 2/1/1: \"Z\" for a field with the attr \"T\"",
        "replace_cond 2/1/1: unknown use_type \"Z\""}},
      {rule("field_id='D1'", 1),
       {"replace_cond 2/1/1: \"S\" for a field with the attr \"D\"",
        "replace_cond 2/1/3: \"S\" for a field with the attr \"D\""}},
      {"update field set attr='M' where attr='T'", {}},
      {line("s_val='" + text + "'", 'S'), {"replace_cond 2/1/1: an s_val of 101 characters"}},
      {line("s_val=''", 'S'), {"replace_cond 2/1/1: a text line without a text"}},
      {line("s_val=null", 'S'), {"replace_cond 2/1/1: a text line without a text"}},
      {line("s_method=4", 'S'), {"replace_cond 2/1/1: unknown s_method \"4\""}},
      {line("d_f_val='2024/01/01'", 'S'),
       {"replace_cond 2/1/1: a line of the use_type \"S\" that also holds a date"}},
      {line("n_t_method=1,b_val=false", 'S'),
       {"replace_cond 2/1/1: a line of the use_type \"S\" that also holds a number",
        "replace_cond 2/1/1: a line of the use_type \"S\" that also holds an answer"}},
      {line("n_f_val=null,n_t_val=null", 'N'),
       {"replace_cond 3/2/1: neither a lower nor an upper bound"}},
      {line("n_f_val=null", 'N'), {"replace_cond 3/2/1: a n_f_method without a n_f_val"}},
      {line("n_f_method=3,n_t_method=null", 'N'),
       {"replace_cond 3/2/1: unknown n_f_method \"3\"",
        "replace_cond 3/2/1: unknown n_t_method \"\""}},
      {line("n_t_val=9", 'N'),
       {"replace_cond 3/2/1: nothing lies between its bounds \"9.5\" and \"9\""}},
      {line("n_t_val=9.5", 'N'), {}},
      {line("s_val='a',s_method=1", 'N'),
       {"replace_cond 3/2/1: a line of the use_type \"N\" that also holds a text"}},
      {line("d_f_val='2023/02/29'", 'D'),
       {"replace_cond 3/3/1: d_f_val \"2023/02/29\" is no date"}},
      {line("d_t_val='0000/01/01'", 'D'),
       {"replace_cond 3/3/1: d_t_val \"0000/01/01\" is no date"}},
      {line("d_f_method=2", 'D'), {}},
      {line("d_f_method=2,d_t_method=2", 'D'),
       {"replace_cond 3/3/1: nothing lies between its bounds \"2024/02/28\" and \"2024/02/29\""}},
      {line("b_val=null", 'B'), {"replace_cond 3/4/1: a yes/no line without an answer"}},
      {new_line + "b_val) values(3,4,2,'B',false)", {"replace_m 3/12: 2 lines for a yes/no field"}},
  });
  // What the columns' types on a server don't take.
  if (harness::on_server()) return;
  expect_faults({
      {line("n_f_val='abc'", 'N'), {"replace_cond 3/2/1: n_f_val \"abc\" is no number"}},
      {line("n_t_val=9e999", 'N'), {"replace_cond 3/2/1: n_t_val \"inf\" is no number"}},
      {line("b_val=7", 'B'), {"replace_cond 3/4/1: b_val \"7\" is neither yes nor no"}},
      {rule("p_replace_m_no='a'", 4), {"replace_m 2/4: its parent no number does not exist"}},
  });
}

// Stores of other programs may lack the primary keys.
TEST(StoreCheck, FindsNumbersThatStandTwice) {
  harness::test_store store;
  fill(store);
  rule_store::store_rows rows = rule_store::read_store(store.connect_string());
  rows.titles.insert(rows.titles.begin(), rows.titles.front());
  rows.rules.push_back(rows.rules.back());
  rows.lines.push_back(rows.lines.back());
  EXPECT_EQ(rule_store::faults_of(rows),
            lines({"replace 1: its number stands twice", "replace_m 2/4: its number stands twice",
                   "replace_m 2/2: 2 children", "replace_cond 2/1/3: its number stands twice"}));
}

/// What a repair of the store wrote, in the order in which it did.
std::string repaired(const harness::test_store& store, int code) {
  std::ostringstream output, errors;
  const std::string place = store.connect_string();
  EXPECT_EQ(rule_store::run_command(std::vector<std::string_view>{"check", "--repair", place},
                                    output, errors),
            code);
  return output.str() + errors.str();
}

TEST(StoreRepair, MendsWhatNoWindowShowsAndNothingElse) {
  harness::test_store store;
  fill_all(store);
  store.run_all({
      title("p_replace_no=9", 1),
      rule("p_replace_m_no=99", 8),
      "delete from replace where replace_no=4",
      "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,replace_title,"
      "replace_type,r_text) values(4,20,0,'R','name','S','given')",
      new_line + "s_val,s_method) values(2,9,1,'S','a',3)",
      rule("replace_type='X'", 4),
      "update seqno set replace_m=6",
  });
  EXPECT_EQ(repaired(store, 1),
            "mended: replace 1: folder \"folder\" brought back under the root: its folder 9 does "
            "not exist\n"
            "mended: replace_m 3/8: field \"生年月日\" removed: its parent 99 does not exist\n"
            "mended: replace_m 3/10: otherwise removed: it lies under 8\n"
            "mended: replace_m 3/11: field \"会員\" removed: it lies under 10\n"
            "mended: replace_m 3/13: otherwise removed: it lies under 11\n"
            "mended: replace_m 3/12: condition removed: it lies under 11\n"
            "mended: replace_m 3/9: condition removed: it lies under 8\n"
            "mended: replace_m 4/20: value \"name\", text \"given\" removed: its definition does "
            "not exist\n"
            "mended: replace_cond 2/9/1: text is \"a\" removed: no condition points to it\n"
            "mended: replace_cond 3/3/1: date from \"2024/02/28\" to \"2024/02/29\" removed: no "
            "condition points to it\n"
            "mended: replace_cond 3/4/1: yes removed: no condition points to it\n"
            "mended: seqno: replace_m raised from 6 to 7\n"
            "replace_m 2/4: unknown replace_type \"X\"\n");
  EXPECT_EQ(store.rows("select replace_no,replace_m_no from replace_m order by 1,2"),
            lines({"2|1", "2|2", "2|3", "2|4", "3|5", "3|6", "3|7"}));
  EXPECT_EQ(store.rows("select replace_no,replace_cond_no,sno from replace_cond order by 1,2,3"),
            lines({"2|1|1", "2|1|3", "3|2|1"}));
  EXPECT_EQ(store.rows("select p_replace_no from replace order by replace_no"),
            lines({"0", "1", "0"}));
  EXPECT_EQ(store.value("select replace||'|'||replace_m||'|'||replace_cond from seqno"), "4|7|4");

  EXPECT_EQ(repaired(store, 1), "replace_m 2/4: unknown replace_type \"X\"\n");
  store.run(rule("replace_type='S'", 4));
  EXPECT_EQ(repaired(store, 0), "");
}

TEST(StoreRepair, ChangesNothingThatIsRefusedHalfWayOrThatNobodyIsTold) {
  harness::test_store store;
  fill_all(store);
  store.run_all({"delete from replace where replace_no=2", "update seqno set replace=0"});
  const auto rows = [&] { return store.rows("select * from replace_m order by replace_m_no"); };
  const lines before = rows();
  store.refuse("update", "seqno", "no counting");
  EXPECT_EQ(repaired(store, 2), "rule_store: no counting\n");
  EXPECT_EQ(rows(), before);
  store.stop_refusing();
  const std::string place = store.connect_string();
  for (const std::vector<std::string_view>& command :
       {std::vector<std::string_view>{"check", place, "--repair"}, {"print", place}}) {
    std::ofstream full("/dev/full");
    std::ostringstream errors;
    EXPECT_NE(rule_store::run_command(command, full, errors), 0);
    EXPECT_EQ(errors.str(), "rule_store: the output could not be written\n");
  }
  EXPECT_EQ(rows(), before);
  EXPECT_NE(repaired(store, 0), "");
  EXPECT_NE(rows(), before);
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
