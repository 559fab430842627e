#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <fstream>

#include "content_of.h"
#include "store/key_counters.h"
#include "store/sql.h"
#include "store_failure.h"
#include "test_store.h"
#include "without_rights.h"

using namespace ADODB;

namespace {

using harness::content_of;

void write(const std::filesystem::path& file, const std::string& content) {
  std::ofstream(file, std::ios::binary) << content;
}

void run_apart(const std::filesystem::path& file, const char* script) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, script, nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(database);
}

class SqliteEngine : public testing::Test {
 protected:
  SqliteEngine() { connection.Open(store.connect_string()); }

  [[nodiscard]] std::filesystem::path file(const char* name) const { return store.folder() / name; }

  harness::test_store store;
  Connection connection;
};

TEST_F(SqliteEngine, OpenFailsOnWhatIsNoStoreAndMakesNothing) {
  Connection other;
  write(file("text"), std::string(5000, 'x'));
  write(file("empty"), "");
  std::filesystem::create_directory(file("folder"));
  for (const char* name : {"missing", "folder", "text", "empty", "missing/a"}) {
    const std::string path = file(name).string();
    const Error failure = failure_of([&] { other.Open("Driver=SQLite;Database=" + path); });
    EXPECT_TRUE(std::string(failure.what()).starts_with(path + ": ")) << failure.what();
    EXPECT_FALSE(other.is_open());
  }
  EXPECT_EQ(content_of(file("text")), std::string(5000, 'x'));
  EXPECT_EQ(content_of(file("empty")), "");
  EXPECT_FALSE(std::filesystem::exists(file("missing")));
  EXPECT_THROW(other.Open("Driver=SQLite;Database=:memory:"), Error);
}

TEST_F(SqliteEngine, OpenFailsWhereItMayOnlyRead) {
  run_apart(file("locked.db"), "create table t(a)");
  ::chmod(store.folder().c_str(), 0755);
  ::chmod(file("locked.db").c_str(), 0444);
  Connection other;
  const harness::without_rights meanwhile;
  const Error failure =
      failure_of([&] { other.Open("Driver=SQLite;Database=" + file("locked.db").string()); });
  EXPECT_NE(std::string(failure.what()).find("locked.db: attempt to write a readonly"),
            std::string::npos)
      << failure.what();
}

TEST_F(SqliteEngine, OpenChangesNothingAndTextsOfAnyEncodingAreRead) {
  Connection other;
  run_apart(file("old.db"),
            "PRAGMA encoding='UTF-16le'; create table t(a); insert into t values('漢😀')");
  const std::string before = content_of(file("old.db"));
  other.Open("Driver=SQLite;Database=" + file("old.db").string());
  EXPECT_EQ(other.Execute("PRAGMA journal_mode").Fields().Item(0).Value().text(), "delete");
  EXPECT_EQ(other.Execute(sql("select a from t where a='<a>'", {"漢😀"})).Fields().Item(0).Value(),
            Value(std::string("漢😀")));
  other.Close();
  EXPECT_EQ(content_of(file("old.db")), before);
  EXPECT_EQ(connection.Execute("PRAGMA journal_mode").Fields().Item(0).Value().text(), "wal");
}

// Whatever becomes of the file: nothing is lost that counted as stored, and what lies at the path
// is opened by the next command.
TEST_F(SqliteEngine, NoticesThatTheFileWasTakenFromItsPath) {
  using std::filesystem::rename;
  const auto lost = [&](const std::function<void()>& command) {
    const Error failure = failure_of(command);
    EXPECT_EQ(failure.kind(), failure_kind::lost_connection);
    EXPECT_NE(std::string(failure.what()).find("store.db"), std::string::npos) << failure.what();
  };
  const auto advance = [&] { advance_number(connection, "replace"); };
  const auto counted = [&] { return last_number(connection, "replace"); };
  for (const char* mode : {"wal", "delete"}) {
    std::filesystem::remove(file("old.db"));
    connection.Close();
    run_apart(file("store.db"), (std::string("PRAGMA journal_mode=") + mode).c_str());
    copy_file(file("store.db"), file("backup.db"));
    connection.Open(store.connect_string());
    const std::int64_t before = counted().value();

    advance();
    rename(file("store.db"), file("old.db"));
    lost(advance);
    lost([&] { (void)counted(); });
    EXPECT_FALSE(std::filesystem::exists(file("store.db")));
    rename(file("old.db"), file("store.db"));
    EXPECT_EQ(counted(), before + 1);

    connection.BeginTrans();
    advance();
    copy_file(file("store.db"), file("old.db"));
    rename(file("backup.db"), file("store.db"));
    lost([&] { connection.CommitTrans(); });
    lost([&] { (void)counted(); });
    connection.RollbackTrans();
    EXPECT_EQ(counted(), before) << mode;
    advance();
    EXPECT_EQ(connection.Execute("PRAGMA integrity_check").Fields().Item(0).Value().text(), "ok");
    connection.BeginTrans();
    std::filesystem::remove(file("store.db"));
    lost([&] { connection.CommitTrans(); });
    connection.RollbackTrans();
    lost([&] { connection.BeginTrans(); });
    rename(file("old.db"), file("store.db"));
    EXPECT_EQ(counted(), before + 1) << mode;
  }
}

TEST_F(SqliteEngine, NoticesABackupThatWasWrittenOverItsFile) {
  using std::filesystem::copy_options;
  connection.Close();
  copy_file(file("store.db"), file("used.db"));
  connection.Open("Driver=SQLite;Database=" + file("used.db").string());
  const auto add = [&] { connection.Execute("insert into field values('a','a','T')"); };
  add();
  for (const char* log : {"used.db-wal", "used.db-shm"}) std::filesystem::remove(file(log));
  copy_file(file("store.db"), file("used.db"), copy_options::overwrite_existing);
  EXPECT_EQ(failure_of(add).kind(), failure_kind::lost_connection);
  add();
  EXPECT_EQ(connection.Execute("select * from field").RecordCount(), 1U);
}

TEST_F(SqliteEngine, WritesNothingMoreInATransactionThatTheEngineTookBack) {
  store.run("create trigger t before delete on field begin select raise(rollback, 'full'); end");
  store.run("insert into field values('a','a','T')");
  connection.BeginTrans();
  connection.Execute("update seqno set replace=5");
  EXPECT_STREQ(failure_of([&] { connection.Execute("delete from field"); }).what(), "full");
  EXPECT_THROW(connection.Execute("update seqno set replace=6"), Error);
  EXPECT_THROW(connection.CommitTrans(), Error);
  connection.RollbackTrans();
  EXPECT_EQ(store.value("select replace from seqno"), "0");
  connection.Execute("update seqno set replace=6");
}

TEST_F(SqliteEngine, TellsWhoHasReadAlreadyToBeginAnewWhileAnotherWrites) {
  Connection other;
  other.Open(store.connect_string());
  other.BeginTrans();
  advance_number(other, "replace");
  connection.BeginTrans();
  (void)last_number(connection, "replace");
  EXPECT_EQ(failure_of([&] { advance_number(connection, "replace"); }).kind(), failure_kind::stale);
}

}  // namespace
