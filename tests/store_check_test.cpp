#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "content_of.h"
#include "test_store.h"
#include "tool/store_check.h"
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

void fill_all(harness::test_store& store) {
  store.run_script("checked_rules.sql");
  store.run_script("checked_ranges.sql");
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
  store.run_script("copied_values.sql");
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
  store.run_script("checked_rules.sql");
  rule_store::store_rows rows = rule_store::read_store(store.connect_string());
  rows.titles.insert(rows.titles.begin(), rows.titles.front());
  rows.rules.push_back(rows.rules.back());
  rows.lines.push_back(rows.lines.back());
  EXPECT_EQ(rule_store::faults_of(rows),
            lines({"replace 1: its number stands twice", "replace_m 2/4: its number stands twice",
                   "replace_m 2/2: 2 children", "replace_cond 2/1/3: its number stands twice"}));
}

TEST(StorePrint, EndsWhereAFolderLiesInItself) {
  harness::test_store store;
  store.ignore_checks();
  store.run("insert into replace(replace_no,p_replace_no,kind,title) values(0,0,'F','a')");
  EXPECT_LT(printed(store).size(), 100U);
}

TEST(StorePrint, TellsTheTreesWithoutNumbers) {
  harness::test_store store;
  store.run_script("checked_rules.sql");
  store.run_script("further_lines.sql");
  const std::string expected = harness::content_of(PROJECT_ROOT "/tests/printed.txt");
  EXPECT_EQ(printed(store), expected);

  store.run_script("other_numbers.sql");
  EXPECT_EQ(printed(store), expected);
  EXPECT_NE(printed(store, rule_store::key_display::shown).find("text is \"b\" #8 #13\n"),
            std::string::npos);

  store.run("update replace set p_replace_no=20 where replace_no=20");
  EXPECT_EQ(printed(store),
            "replace rows outside the trees: 2\nreplace_m rows outside the trees: 4\n"
            "replace_cond rows outside the trees: 8\n");
}

}  // namespace
