#include <cstdlib>
#include <fstream>
#include <utility>

#include "store/postgresql_session.h"
#include "store_failure.h"
#include "test_store.h"
#include "tool/embedded_scripts.h"
#include "tool/store_maker.h"

namespace harness {
namespace {

/// In memory where the system has such a place: most of a test would be waiting for the disk.
std::filesystem::path scratch() {
  const std::filesystem::path memory = "/dev/shm";
  return std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path();
}

}  // namespace

test_store::test_store() {
  std::string pattern = (scratch() / "vorlumine_XXXXXX").string();
  folder_ = ::mkdtemp(pattern.data());
  if (on_server())
    database_.emplace();
  else
    rule_store::make_store((folder_ / "store.db").string(), rule_store::content::empty);
  connection_.Open(connect_string());
}

test_store::~test_store() {
  connection_.Close();
  std::filesystem::remove_all(folder_);
}

std::string test_store::connect_string() const {
  if (database_) return database_->connect_string();
  return "Driver=SQLite;Database=" + (folder_ / "store.db").string();
}

void test_store::run(std::string_view statement) {
  connection_.Execute(statement);
}

void test_store::run(const ADODB::statement& statement) {
  connection_.Execute(statement);
}

void test_store::run_all(const std::vector<std::string>& statements) {
  for (const std::string& statement : statements) run(statement);
}

void test_store::run_script(const std::string& name) {
  std::ifstream file(PROJECT_ROOT "/tests/" + name);
  std::string statement;
  for (std::string line; std::getline(file, line);) {
    statement += line + "\n";
    if (line.ends_with(';')) run(std::exchange(statement, {}));
  }
}

std::vector<std::string> test_store::rows(std::string_view statement) {
  std::vector<std::string> lines;
  ADODB::Recordset rows = connection_.Execute(statement);
  for (; !rows.eof(); rows.MoveNext()) {
    std::string line;
    for (std::size_t i = 0; i < rows.Fields().Count(); ++i) {
      const ADODB::Value value = rows.Fields().Item(i).Value();
      line += (i ? "|" : "") + (value.is_null() ? "null" : value.text());
    }
    lines.push_back(line);
  }
  return lines;
}

std::string test_store::value(std::string_view statement) {
  const auto found = rows(statement);
  return found.empty() ? "no row" : found.front();
}

std::string test_store::refusal_of(std::string_view statement) {
  return failure_of([&] { run(statement); }).what();
}

void test_store::load_sample() {
  if (database_) {
    ADODB::postgresql_session session(ADODB::read_connection_string(connect_string()));
    session.run("truncate replace, replace_m, replace_cond, field");
    return session.run(rule_store::sample_script);
  }
  connection_.Close();
  for (const char* file : {"store.db", "store.db-wal", "store.db-shm"}) {
    std::filesystem::remove(folder_ / file);
  }
  rule_store::make_store((folder_ / "store.db").string(), rule_store::content::sample);
  connection_.Open(connect_string());
}

void test_store::refuse(const std::string& event, const std::string& table, const std::string& text,
                        const std::string& when) {
  const std::string name = "refuse_" + event + "_" + table;
  const std::string trigger = "create trigger " + name + " before " + event + " on " + table +
                              " for each row when (" + when + ")";
  if (!database_) return run(trigger + " begin select raise(abort, '" + text + "'); end");
  run("create or replace function " + name + "() returns trigger language plpgsql as" +
      " $$ begin raise exception using message = '" + text + "'; end $$");
  run(trigger + " execute function " + name + "()");
}

void test_store::stop_refusing() {
  const char* const triggers =
      database_ ? "select tgname||' on '||tgrelid::regclass from pg_trigger where not tgisinternal"
                : "select name from sqlite_schema where type='trigger'";
  for (const std::string& trigger : rows(triggers)) run("drop trigger " + trigger);
}

void test_store::ignore_checks() {
  if (!database_) return run("pragma ignore_check_constraints=on");
  for (const std::string& check :
       rows("select conrelid::regclass||' drop constraint '||conname from pg_constraint"
            " where contype='c' and conrelid<>0"))
    run("alter table " + check);
}

}  // namespace harness
