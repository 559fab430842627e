#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <utility>

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

/// Each statement of the file breaks a store that was in order before; the indented lines below it
/// are the faults that are found then.
void expect_damages_found(const std::string& name) {
  harness::test_store store;
  store.ignore_checks();
  std::ifstream file(PROJECT_ROOT "/tests/" + name);
  std::string statement;
  std::getline(file, statement);
  while (!statement.empty()) {
    for (const char* table : {"replace", "replace_m", "replace_cond", "field", "seqno"})
      store.run(std::string("delete from ") + table);
    store.run("insert into seqno values(0,0,0)");
    fill_all(store);
    store.run(statement);
    lines expected;
    std::string next;
    while (std::getline(file, next) && next.starts_with("  ")) expected.push_back(next.substr(2));
    EXPECT_EQ(faults_in(store), expected) << statement;
    statement = std::exchange(next, {});
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

TEST(StoreCheck, FindsEveryKindOfDamage) {
  expect_damages_found("damages.txt");
  // What the columns' types on a server don't take.
  if (!harness::on_server()) expect_damages_found("damages_of_files.txt");
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
