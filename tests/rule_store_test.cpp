#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iostream>
#include <sstream>

#include "content_of.h"
#include "store_failure.h"
#include "test_store.h"
#include "tool/json_text.h"
#include "tool/store_commands.h"
#include "tool/store_copy.h"
#include "without_rights.h"

using namespace ADODB;

namespace {

using lines = std::vector<std::string>;
using arguments = std::vector<std::string_view>;

struct outcome {
  int code;
  std::string output;
  std::string errors;
};

outcome rule_store_with(const arguments& given) {
  std::ostringstream output, errors;
  const int code = rule_store::run_command(given, output, errors);
  return {code, output.str(), errors.str()};
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
  const std::string path = (folder_only.folder() / "new_passwords.db").string();
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
  EXPECT_EQ(rule_store_with({"check", place}).code, 3);
}

TEST(RuleStoreTool, ReadsWhereTheServerTakesNoChanges) {
  if (!harness::on_server()) return;
  harness::test_store store;
  store.run("alter database " + store.value("select current_database()") +
            " set default_transaction_read_only=on");
  EXPECT_EQ(rule_store_with({"check", store.connect_string()}).code, 0);
  EXPECT_EQ(rule_store_with({"print", store.connect_string()}).code, 0);
  EXPECT_EQ(rule_store_with({"check", store.connect_string(), "--repair"}).code, 1);
}

TEST(RuleStoreTool, TellsHowItIsCalled) {
  for (const arguments& wrong :
       std::initializer_list<arguments>{{},
                                        {"other"},
                                        {"Driver=SQLite;Pwd=secret", "a"},
                                        {"init"},
                                        {"init", ""},
                                        {"copy", "a"},
                                        {"init", "a", "--other=secret"},
                                        {"init", "a", "--sample", "b"},
                                        {"init", "--", "a", "--sample"},
                                        {"print", "a", "--keys", "--json"}}) {
    const outcome outcome = rule_store_with(wrong);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_NE(outcome.errors.find("--help'.\n"), std::string::npos);
    EXPECT_EQ(outcome.errors.find("secret"), std::string::npos);
  }
  EXPECT_FALSE(std::filesystem::remove("a"));
  for (const arguments& asking : {arguments{"-h"}, {"copy", "--help"}, {"--version", "check"}}) {
    const outcome outcome = rule_store_with(asking);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_NE(outcome.output.find("rule_store "), std::string::npos);
    EXPECT_EQ(outcome.errors, "");
  }
}

TEST(RuleStoreTool, TellsByItsExitCodeHowACheckEnded) {
  harness::test_store store;
  const outcome clean = rule_store_with({"check", store.connect_string()});
  EXPECT_EQ(clean.code, 0);
  EXPECT_EQ(clean.output + clean.errors, "");
  store.run("delete from seqno");
  const outcome damaged = rule_store_with({"check", store.connect_string()});
  EXPECT_EQ(damaged.code, 3);
  EXPECT_EQ(damaged.output, "seqno: 0 rows instead of one\n");
  const std::string missing = (store.folder() / "none.db").string();
  for (const char* command : {"check", "print"}) {
    const outcome failed = rule_store_with({command, missing});
    EXPECT_EQ(failed.code, 1);
    EXPECT_NE(failed.errors.find("none.db"), std::string::npos);
  }
}

TEST(RuleStoreTool, PrintsTheTablesAsJson) {
  harness::test_store store;
  store.run_all({"insert into field values('12','a\"\\\n\x01é','B')",
                 "insert into replace values(1,0,'C',null,' ',1)",
                 "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,n_f_val,"
                 "n_f_method,n_t_val,b_val) values(1,1,1,'N',-0.5,2,9007199254740993,false),"
                 "(1,1,2,'B',null,null,null,true)"});
  if (!harness::on_server())
    store.run("update replace set comment=cast(x'41ffe38182eda0805a' as text)");
  const outcome printed = rule_store_with({"print", store.connect_string(), "--json"});
  std::string expected = harness::content_of(PROJECT_ROOT "/tests/printed.json");
  if (harness::on_server())
    expected.replace(expected.find("A\uFFFD"), std::string("A\uFFFDあ\uFFFD\uFFFD\uFFFDZ").size(),
                     " ");
  EXPECT_EQ(printed.output, expected);
}

TEST(Json, HoldsNothingThatIsNoCharacterOrNumber) {
  using namespace std::string_literals;
  for (const std::string& whole : {"\xE0\xA0\x80"s, "\xF0\x90\x80\x80"s, "\xED\x9F\xBF"s,
                                   "\xF4\x8F\xBF\xBF"s, "\xC2\x80"s, " ~"s})
    EXPECT_EQ(rule_store::json_string(whole), '"' + whole + '"');
  for (const std::string& broken :
       {"\xE0\x9F\xBF"s, "\xF0\x8F\x80\x80"s, "\xED\xA0\x80"s, "\xF4\x90\x80\x80"s,
        "\xF5\x80\x80\x80"s, "\xC1\x80"s, "\xE3\x81"s}) {
    std::string expected = "\"";
    for (std::size_t i = 0; i < broken.size(); ++i) expected += "\uFFFD";
    EXPECT_EQ(rule_store::json_string(broken), expected + '"');
  }
  EXPECT_EQ(rule_store::json_string("\x1F\x7F"), R"("\u001f\u007f")");
  for (const char* number : {"0", "-0.5", "10", "1.25"})
    EXPECT_TRUE(rule_store::is_json_number(number)) << number;
  for (const char* text : {"", "-", "01", ".5", "1.", "1e5", "+1", "1.x", "1 "})
    EXPECT_FALSE(rule_store::is_json_number(text)) << text;
}

TEST(RuleStoreTool, ShowsATerminalHowFarItIs) {
  harness::test_store store;
  store.load_sample();
  store.run("delete from seqno");  // so that a check has something to tell
  const std::string copy = (store.folder() / "copy.db").string();
  const std::string place = store.connect_string();
  std::ostringstream output, terminal;
  const auto run = [&](const arguments& command, std::ostream& printed) {
    terminal.str("");
    return rule_store::run_command(command, printed, printed, &terminal);
  };
  std::signal(SIGHUP, SIG_IGN);  // as nohup does
  ASSERT_EQ(run({"copy", place, copy}, output), 0);
  EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL) << "it can be ended as before";
  EXPECT_NE(terminal.str().find(" rows"), std::string::npos);
  EXPECT_TRUE(terminal.str().ends_with(" \r")) << terminal.str();
  for (const arguments& command : {arguments{"check", copy},
                                   {"check", "--repair", copy},
                                   {"print", copy},
                                   {"print", "--json", copy}}) {
    (void)run(command, terminal);
    EXPECT_TRUE(terminal.str().starts_with("\rreading ")) << terminal.str();
    EXPECT_EQ(terminal.str().substr(terminal.str().rfind(" \r") + 2),
              rule_store_with(command).output);
  }
  (void)run({"-q", "check", copy}, output);
  EXPECT_EQ(terminal.str(), "");
}

/// A terminal at which the program is asked once to end, while it copies.
struct interrupting : std::stringbuf {
  int sync() override {
    if (str().find("copying") == std::string::npos) return 0;
    str("");
    return std::raise(SIGTERM);
  }
};

TEST(RuleStoreTool, LeavesNoFileOfAnInterruptedCopy) {
  harness::test_store store;
  const std::string copy = (store.folder() / "copy.db").string();
  const std::string place = store.connect_string();
  EXPECT_EXIT(
      {
        interrupting buffer;
        std::ostream terminal(&buffer);
        (void)rule_store::run_command(arguments{"copy", place, copy}, std::cout, std::cerr,
                                      &terminal);
      },
      testing::KilledBySignal(SIGTERM), "");
  EXPECT_FALSE(std::filesystem::exists(copy));
}

class StoreRepair : public testing::Test {
 protected:
  StoreRepair() {
    store.run_script("checked_rules.sql");
    store.run_script("checked_ranges.sql");
  }

  /// What a repair of the store wrote, in the order in which it did.
  [[nodiscard]] std::string repaired(int code) const {
    const std::string place = store.connect_string();
    const outcome repair = rule_store_with({"check", "--repair", place});
    EXPECT_EQ(repair.code, code);
    return repair.output + repair.errors;
  }

  harness::test_store store;
};

TEST_F(StoreRepair, MendsWhatNoWindowShowsAndNothingElse) {
  store.run_script("unseen_rows.sql");
  EXPECT_EQ(repaired(3), harness::content_of(PROJECT_ROOT "/tests/mended.txt"));
  EXPECT_EQ(store.rows("select replace_no,replace_m_no from replace_m order by 1,2"),
            lines({"2|1", "2|2", "2|3", "2|4", "3|5", "3|6", "3|7"}));
  EXPECT_EQ(store.rows("select replace_no,replace_cond_no,sno from replace_cond order by 1,2,3"),
            lines({"2|1|1", "2|1|3", "3|2|1"}));
  EXPECT_EQ(store.rows("select p_replace_no from replace order by replace_no"),
            lines({"0", "1", "0"}));
  EXPECT_EQ(store.value("select replace||'|'||replace_m||'|'||replace_cond from seqno"), "4|7|4");

  const std::string unknown = "replace_m 2/4: unknown replace_type \"X\"\n";
  EXPECT_EQ(repaired(3), unknown);
  if (!harness::on_server()) {  // no statement can name a row whose number is none
    store.ignore_checks();
    store.run(
        "insert into replace_m(replace_no,replace_m_no,p_replace_m_no) values(2,'x',99),(2,5,'x')");
    EXPECT_EQ(repaired(3).find("mended"), std::string::npos);
    store.run("delete from replace_m where 'x' in (replace_m_no,p_replace_m_no)");
  }
  store.run("update replace_m set replace_type='S' where replace_m_no=4");
  EXPECT_EQ(repaired(0), "");
}

TEST_F(StoreRepair, ChangesNothingThatIsRefusedHalfWayOrThatNobodyIsTold) {
  store.run_all({"delete from replace where replace_no=2", "update seqno set replace=0"});
  const auto rows = [&] { return store.rows("select * from replace_m order by replace_m_no"); };
  const lines before = rows();
  store.refuse("update", "seqno", "no counting");
  EXPECT_EQ(repaired(1), "rule_store: no counting\n");
  EXPECT_EQ(rows(), before);
  store.stop_refusing();
  const std::string place = store.connect_string();
  for (const arguments& command : {arguments{"check", place, "--repair"}, {"print", place}}) {
    std::ofstream full("/dev/full");
    std::ostringstream errors;
    EXPECT_NE(rule_store::run_command(command, full, errors), 0);
    EXPECT_EQ(errors.str(), "rule_store: the output could not be written\n");
  }
  EXPECT_EQ(rows(), before);
  EXPECT_NE(repaired(0), "");
  EXPECT_NE(rows(), before);
}

TEST(RuleStoreTool, CopiesAStoreToTheOtherEngineAndBackOrNothingOfIt) {
  harness::test_store source, target;
  source.load_sample();
  const std::string file = (source.folder() / "{copy.db").string();
  const std::string from = source.connect_string();
  const std::string to = target.connect_string();
  ASSERT_EQ(rule_store_with({"copy", from, file}).code, 0);
  ASSERT_EQ(rule_store_with({"copy", "Driver=SQLite;Database={" + file + "}", to}).code, 0);
  EXPECT_EQ(rule_store_with({"print", to, "--keys"}).output,
            rule_store_with({"print", from, "--keys"}).output);
  EXPECT_EQ(target.rows("select * from field"), source.rows("select * from field"));
  EXPECT_EQ(target.rows("select * from seqno"), source.rows("select * from seqno"));
  EXPECT_EQ(rule_store_with({"copy", from, to}).errors,
            "rule_store: the target holds rows already, in its table field\n");

  target.ignore_checks();
  const std::string row =
      "replace_cond " +
      target.value("select min(replace_no||'/'||replace_cond_no||'/'||sno) from replace_cond");
  target.run("update replace_cond set s_val='" + std::string(101, 'x') +
             "' where 'replace_cond '||replace_no||'/'||replace_cond_no||'/'||sno='" + row + "'");
  target.run("update replace_m set use_type=null where replace_no=17");
  std::filesystem::remove(file);
  const outcome refused = rule_store_with({"copy", to, file});
  EXPECT_EQ(refused.code, 1);
  EXPECT_TRUE(refused.output.starts_with(row + ": ")) << refused.output;
  EXPECT_EQ(std::ranges::count(refused.output, '\n'), 1) << refused.output;
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(RuleStoreTool, CopiesOneMomentOfAStoreInUse) {
  harness::test_store store;
  store.load_sample();
  const lines before = store.rows("select count(*) from replace_cond");
  const std::string copy = (store.folder() / "copy.db").string();
  const auto use = [&](const std::string& doing) {
    if (doing == "reading replace_cond") store.run("delete from replace_cond");
  };
  EXPECT_TRUE(rule_store::copy_store(store.connect_string(), copy, use).faults.empty());
  Connection copied;
  copied.Open("Driver=SQLite;Database=" + copy);
  EXPECT_EQ(copied.Execute("select count(*) from replace_cond").Fields().Item(0).Value().text(),
            before.front());
}

TEST(Schema, RefusesWhatNoProgramMayStore) {
  harness::test_store store;
  for (const std::string& statement : harness::lines_of("refused_statements.txt"))
    EXPECT_EQ(failure_of([&] { store.run(statement); }).kind(), failure_kind::refused_by_check)
        << statement;
  store.run_script("taken_statements.sql");
  EXPECT_EQ(store.value("select replace_cond_no from replace_m where replace_cond_type='0'"),
            "null");
}

TEST(Schema, NeedsNoScanOfATableForTheSystemsLookUps) {
  harness::test_store store;
  const std::string explain = harness::on_server() ? "explain " : "explain query plan ";
  for (const std::string& look_up : harness::lines_of("look_ups.txt"))
    for (const std::string& step : store.rows(explain + look_up))
      for (const char* detour : {"SCAN", "TEMP B-TREE", "Seq Scan", "Sort"})
        EXPECT_EQ(step.find(detour), std::string::npos) << step;
}

}  // namespace
