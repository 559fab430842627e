#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <sstream>

#include "store_failure.h"
#include "test_store.h"
#include "tool/store_commands.h"
#include "without_rights.h"

using namespace ADODB;

namespace {

struct outcome {
  int code;
  std::string errors;
};

outcome rule_store_with(const std::vector<std::string_view>& arguments) {
  std::ostringstream output, errors;
  const int code = rule_store::run_command(arguments, output, errors);
  return {code, errors.str()};
}

TEST(RuleStoreTool, MakesAStoreOnceAndTouchesNothingThatIsThere) {
  const harness::test_store folder_only;
  const std::string path = (folder_only.folder() / "new.db").string();
  const outcome made = rule_store_with({"init", path, "--sample"});
  EXPECT_EQ(made.code, 0) << made.errors;

  Connection connection;
  connection.Open("Driver=SQLite;Database=" + path);
  const auto count = [&] {
    return connection.Execute("select count(*) from replace").Fields().Item(0).Value().number();
  };
  EXPECT_GT(count(), 40);
  connection.Execute("delete from replace");
  const outcome again = rule_store_with({"init", path});
  EXPECT_EQ(again.code, 1);
  EXPECT_NE(again.errors.find(path), std::string::npos);
  EXPECT_EQ(count(), 0);

  EXPECT_EQ(rule_store_with({"init", path + "/under/a/file"}).code, 1);
  EXPECT_EQ(rule_store_with({"init", folder_only.folder().string()}).code, 1);
}

TEST(RuleStoreTool, TakesNoConnectionStringForTheNameOfAFile) {
  const harness::test_store folder_only;
  const std::string path = (folder_only.folder() / "new.db").string();
  EXPECT_EQ(rule_store_with({"init", " driver = SQLite ; Database = " + path}).code, 0);
  EXPECT_TRUE(std::filesystem::remove(path));
  for (const std::string& place :
       {"Drivr=SQLite;Database=" + path + ";Pwd=secret", path + ";Pwd : secret",
        "postgresql://me:secret@" + path, "dbname=" + path + " password=secret",
        "Driver=SQLite;Database=" + path + ", Pwd = secret"}) {
    const outcome refused = rule_store_with({"init", place});
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(refused.errors.starts_with("rule_store: connection string: ")) << refused.errors;
    EXPECT_EQ(refused.errors.find("secret"), std::string::npos) << refused.errors;
  }
  for (const auto& file : std::filesystem::directory_iterator(folder_only.folder()))
    EXPECT_FALSE(file.path().filename().string().starts_with("new")) << file.path();
}

TEST(RuleStoreTool, ReadsWhereNothingCanBeWrittenAndLeavesNothingBehind) {
  const harness::test_store folder_only;
  const std::filesystem::path folder = folder_only.folder() / "100% #1?";
  const std::string file = (folder / "new.db").string();
  const std::string place = "Driver=SQLite;Database=" + file;
  std::filesystem::create_directory(folder);
  ASSERT_EQ(rule_store_with({"init", file, "--sample"}).code, 0);
  ::chmod(folder_only.folder().c_str(), 0755);
  const auto written = std::filesystem::last_write_time(file);
  const auto expect_reading = [&](int file_mode, int folder_mode) {
    ::chmod(file.c_str(), file_mode);
    ::chmod(folder.c_str(), folder_mode);
    const harness::without_rights meanwhile;
    for (const char* command : {"check", "print"}) {
      const outcome read = rule_store_with({command, place});
      EXPECT_EQ(read.code, 0) << command << " " << file_mode << " " << read.errors;
    }
    const std::filesystem::directory_iterator files(folder);
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << file_mode << " " << folder_mode;
    EXPECT_EQ(std::filesystem::last_write_time(file), written);
  };
  expect_reading(0444, 0555);
  expect_reading(0444, 0777);
  expect_reading(0666, 0555);
  expect_reading(0666, 0777);
  // Somebody who writes has the two other files beside it.
  Connection writer;
  writer.Open(place);
  writer.Execute("delete from seqno");
  ::chmod(folder.c_str(), 0555);
  const harness::without_rights meanwhile;
  EXPECT_EQ(rule_store_with({"check", place}).code, 1);
}

TEST(RuleStoreTool, ReadsWhereTheServerTakesNoChanges) {
  if (!harness::on_server()) return;
  harness::test_store store;
  store.run("alter database " + store.value("select current_database()") +
            " set default_transaction_read_only=on");
  EXPECT_EQ(rule_store_with({"check", store.connect_string()}).code, 0);
  EXPECT_EQ(rule_store_with({"print", store.connect_string()}).code, 0);
  EXPECT_EQ(rule_store_with({"check", store.connect_string(), "--repair"}).code, 2);
}

TEST(RuleStoreTool, ShowsItsUsageWhenCalledWrongly) {
  const std::vector<std::vector<std::string_view>> wrong = {{},
                                                            {"other"},
                                                            {"init"},
                                                            {"init", "a", "--other"},
                                                            {"init", "--sample"},
                                                            {"init", ""},
                                                            {"init", "a", "--sample", "b"}};
  for (const auto& arguments : wrong) {
    const outcome outcome = rule_store_with(arguments);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_NE(outcome.errors.find("init FILE|CONNECT_STRING [--sample]"), std::string::npos);
  }
  EXPECT_FALSE(std::filesystem::exists("a"));
}

TEST(Schema, RefusesWhatNoProgramMayStore) {
  harness::test_store store;
  const std::string line = "insert into replace_cond(replace_no,replace_cond_no,sno,";
  const std::string long_text(101, 'x');
  for (const std::string& statement :
       {std::string("insert into replace(replace_no) values(0)"),
        std::string("insert into replace(replace_no) values(32768)"),
        std::string("insert into replace(replace_no,p_replace_no) values(1,-1)"),
        "insert into replace(replace_no,title) values(1,'" + long_text + "')",
        std::string("insert into replace_m(replace_no,replace_m_no) values(1,32768)"),
        std::string("insert into replace_m(replace_no,replace_m_no) values(0,1)"),
        std::string("insert into replace_m(replace_no) values(1)"),
        line + "s_val) values(1,1,1,'" + long_text + "')", line + "s_val) values(1,1,0,'a')",
        line + "n_f_val) values(1,1,1,'abc')", line + "n_t_val) values(1,1,1,'')",
        line + "d_f_val) values(1,1,1,'2005/02/31')", line + "d_f_val) values(1,1,1,'2005/2/3')",
        line + "d_t_val) values(1,1,1,'2005/02-03')", line + "d_t_val) values(1,1,1,'2005-13-01')",
        line + "d_t_val) values(1,1,1,'2005102103')", line + "b_val) values(1,1,1,2)"})
    EXPECT_EQ(failure_of([&] { store.run(statement); }).kind(), failure_kind::refused_by_check)
        << statement;
  store.run_all({line + "d_f_val,d_t_val) values(1,1,1,'2004/02/29','2004.02.29')",
                 line + "s_method,use_type) values(1,1,2,'9','?')",
                 "insert into replace_m(replace_no,replace_m_no,replace_cond_type) values(1,1,0)",
                 "insert into replace(replace_no,kind) values(32767,'X')"});
  EXPECT_EQ(store.value("select replace_cond_no from replace_m where replace_cond_type='0'"),
            "null");
}

TEST(Schema, NeedsNoScanOfATableForTheSystemsLookUps) {
  harness::test_store store;
  const std::string explain = harness::on_server() ? "explain " : "explain query plan ";
  for (const char* look_up : {"SELECT * FROM REPLACE WHERE P_REPLACE_NO = 1 ORDER BY REPLACE_NO",
                              "select title from replace where title = 'a' and kind='C'",
                              "select count(*) from replace_m where p_replace_m_no=1",
                              "select * from replace_m where replace_no=1 and p_replace_m_no=1",
                              "select max(sno) from replace_cond where replace_cond_no=1",
                              "SELECT * FROM REPLACE_COND WHERE REPLACE_COND_NO = 1",
                              "delete from replace_cond where replace_no=1",
                              "select field_id,attr from field where field_name='a'"})
    for (const std::string& step : store.rows(explain + look_up))
      for (const char* detour : {"SCAN", "TEMP B-TREE", "Seq Scan", "Sort"})
        EXPECT_EQ(step.find(detour), std::string::npos) << step;
}

}  // namespace
