#include "store/sqlite_database.h"

#include <utility>

#include "store/error.h"

namespace ADODB {
namespace {

bool is_busy(int code) {
  const int primary_code = code & 0xff;
  return primary_code == SQLITE_BUSY || primary_code == SQLITE_LOCKED;
}

failure_kind kind_of(int code) {
  switch (code) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
      return failure_kind::refused_by_key;
    case SQLITE_CONSTRAINT_CHECK:
    case SQLITE_CONSTRAINT_NOTNULL:
      return failure_kind::refused_by_check;
    case SQLITE_BUSY_SNAPSHOT:
      return failure_kind::stale;
    case SQLITE_READONLY_DBMOVED:
      return failure_kind::lost_connection;
    case SQLITE_FULL:
      return failure_kind::full;
    default:
      if ((code & 0xff) == SQLITE_READONLY) return failure_kind::read_only;
      return is_busy(code) ? failure_kind::busy : failure_kind::other;
  }
}

[[noreturn]] void refuse(int code) {
  throw Error(kind_of(code), sqlite3_errstr(code));
}

store_place place_of(const std::string& path) {
  try {
    return store_place(path);
  } catch (const std::exception& failure) {
    throw Error(failure_kind::other, path + ": " + failure.what());
  }
}

}  // namespace

sqlite_database::sqlite_database(const std::string& path, access access, wait_display display,
                                 std::chrono::seconds lock_limit)
    : place_(place_of(path)),
      wait_(std::make_unique<sqlite_lock_wait>(std::move(display), lock_limit)) {
  try {
    open(sqlite_name_of(path, access), access);
  } catch (const Error& failure) {
    throw Error(failure.kind(), path + ": " + failure.what());
  }
}

void sqlite_database::open(const std::string& name, access access) {
  sqlite3* handle = nullptr;
  constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_URI;
  const int code = sqlite3_open_v2(name.c_str(), &handle, flags, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK) refuse(code);
  check(sqlite3_extended_result_codes(handle, 1));
  wait_->serve(handle);
  // SQLite opens a file that it may not write for reading, without an error. A file that it may
  // write is not opened with SQLITE_OPEN_READONLY to be read: a store in WAL mode would keep the
  // two files that SQLite makes beside it.
  if (access == access::reading)
    run("PRAGMA query_only=ON");
  else if (sqlite3_db_readonly(handle, "main") == 1)
    refuse(SQLITE_READONLY);
  run("PRAGMA synchronous=FULL");
  // Opening reads nothing of the file: this statement does, and fails if it is no database.
  run("select count(*) from sqlite_schema");
  static_cast<void>(is_in_place());  // in WAL mode the log is there by now: which one is remembered
}

sqlite_lock_wait::call sqlite_database::begin_call() const {
  if (wait_->is_shown())
    throw Error(failure_kind::other, "another command still waits for the store");
  return sqlite_lock_wait::call(*wait_);
}

sqlite_statement sqlite_database::prepare(std::string_view text) {
  const auto call = begin_call();
  sqlite3_stmt* statement = nullptr;
  const char* rest = nullptr;
  check(sqlite3_prepare_v3(handle_.get(), text.data(), static_cast<int>(text.size()),
                           SQLITE_PREPARE_PERSISTENT, &statement, &rest));
  sqlite_statement prepared(statement);
  if (!prepared) throw Error(failure_kind::other, "there is no statement to run");

  const char* const end = text.data() + text.size();
  while (rest != end) {
    // Blanks, comments and lone semicolons give no second statement.
    const int code =
        sqlite3_prepare_v3(handle_.get(), rest, static_cast<int>(end - rest), 0, &statement, &rest);
    const sqlite_statement second(statement);
    if (code != SQLITE_OK || second)
      throw Error(failure_kind::other, "there is more than one statement to run");
  }
  return prepared;
}

bool sqlite_database::step(sqlite3_stmt* statement) {
  const auto call = begin_call();
  const int code = sqlite3_step(statement);
  if (code != SQLITE_ROW && code != SQLITE_DONE) check(code);
  return code == SQLITE_ROW;
}

void sqlite_database::run(const std::string& script) {
  const auto call = begin_call();
  check(sqlite3_exec(handle_.get(), script.c_str(), nullptr, nullptr, nullptr));
}

std::string sqlite_database::first_cell(std::string_view statement) {
  const sqlite_statement prepared = prepare(statement);
  if (!step(prepared.get())) return {};
  const unsigned char* const text = sqlite3_column_text(prepared.get(), 0);
  return text ? reinterpret_cast<const char*>(text) : "";
}

bool sqlite_database::has_transaction() const {
  return sqlite3_get_autocommit(handle_.get()) == 0;
}

bool sqlite_database::is_in_place() {
  const bool has_same_log = place_.has_same_log();
  return has_same_log && place_.has_same_file();
}

// Where only the log was taken away, the file may have been written over: what the log held would
// ruin it.
bool sqlite_database::leave() {
  if (has_transaction()) run("ROLLBACK");
  if (!place_.has_same_file()) return first_cell("PRAGMA wal_checkpoint(TRUNCATE)") == "0";
  check(sqlite3_db_config(handle_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr));
  return true;
}

void sqlite_database::check(int code) const {
  if (code == SQLITE_OK) return;
  // To a transaction that has read before it writes SQLite says "busy" without waiting: the other
  // program's commit will make outdated what was read, so that only a new transaction can help.
  const bool has_read = sqlite3_txn_state(handle_.get(), "main") == SQLITE_TXN_READ;
  const failure_kind kind = is_busy(code) && has_read ? failure_kind::stale : kind_of(code);
  throw Error(kind, sqlite3_errmsg(handle_.get()));
}

}  // namespace ADODB
