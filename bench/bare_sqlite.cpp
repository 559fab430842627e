#include <sqlite3.h>

#include <stdexcept>
#include <unordered_map>

#include "bare_connection.h"

namespace bench {
namespace {

class sqlite_row : public bare_row {
 public:
  explicit sqlite_row(sqlite3_stmt* statement) : statement_(statement) {}
  [[nodiscard]] int columns() const override { return sqlite3_column_count(statement_); }
  [[nodiscard]] const char* name(int column) const override {
    return sqlite3_column_name(statement_, column);
  }
  [[nodiscard]] const char* text(int column) const override {
    return reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  }

 private:
  sqlite3_stmt* statement_;
};

struct closer {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using prepared_statement = std::unique_ptr<sqlite3_stmt, closer>;

class bare_sqlite : public bare_connection {
 public:
  explicit bare_sqlite(const std::string& path) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open(path.c_str(), &handle);
    database_.reset(handle);
    check(code);
    // As the product waits for the disk.
    run("PRAGMA synchronous=FULL");
  }

  void send(const std::string& statement, const row_reader& reader) override {
    step_through(prepare(statement).get(), reader);
  }

  void send_prepared(const std::string& statement, const std::string& value,
                     const row_reader& reader) override {
    prepared_statement& kept = prepared_[statement];
    if (!kept) kept = prepare(statement);
    sqlite3_bind_text(kept.get(), 1, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
    step_through(kept.get(), reader);
    sqlite3_reset(kept.get());
  }

  void run_all(const std::string& script) override { run("BEGIN;" + script + ";COMMIT"); }

 private:
  void check(int code) const {
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database_.get()));
  }

  void run(const std::string& script) {
    check(sqlite3_exec(database_.get(), script.c_str(), nullptr, nullptr, nullptr));
  }

  prepared_statement prepare(const std::string& statement) {
    sqlite3_stmt* prepared = nullptr;
    check(sqlite3_prepare_v2(database_.get(), statement.c_str(), -1, &prepared, nullptr));
    return prepared_statement(prepared);
  }

  void step_through(sqlite3_stmt* statement, const row_reader& reader) {
    int state = 0;
    while ((state = sqlite3_step(statement)) == SQLITE_ROW)
      if (reader) reader(sqlite_row(statement));
    check(state == SQLITE_DONE ? SQLITE_OK : state);
  }

  std::unique_ptr<sqlite3, closer> database_;
  std::unordered_map<std::string, prepared_statement> prepared_;
};

}  // namespace

std::unique_ptr<bare_connection> open_bare_sqlite(const std::string& path) {
  return std::make_unique<bare_sqlite>(path);
}

}  // namespace bench
