#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

#include "store/connection_string.h"
#include "store/sqlite_file.h"
#include "store/sqlite_lock_wait.h"

namespace ADODB {

struct statement_deleter {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using sqlite_statement = std::unique_ptr<sqlite3_stmt, statement_deleter>;

/// An open SQLite file. Used by one thread at a time. Every failure is an Error.
class sqlite_database {
 public:
  /// Opens the existing file at `path` (UTF-8), which must be writable unless it is to be read, and
  /// never makes one. A commit returns when the disk has it; a lock of another program is waited
  /// for up to the limit, and `display` shows that. The text of a failure begins with the path.
  explicit sqlite_database(const std::string& path, access access = access::writing,
                           wait_display display = {},
                           std::chrono::seconds lock_limit = time_limits().lock);

  /// Prepares the one statement that the text holds.
  [[nodiscard]] sqlite_statement prepare(std::string_view text);

  /// Runs a prepared statement up to its next row: false if there is none.
  bool step(sqlite3_stmt* statement);

  /// Runs all statements of a text and drops their rows.
  void run(const std::string& script);

  /// The first cell of the statement's first row as text; the empty text without a row.
  [[nodiscard]] std::string first_cell(std::string_view statement);

  /// Whether a transaction that was begun still lasts: a failure may have ended it.
  [[nodiscard]] bool has_transaction() const;

  /// False once the file, or its log in WAL mode, was renamed, deleted or replaced.
  [[nodiscard]] bool is_in_place();

  /// For a file that is no longer in place, before it is closed: rolls back, and brings what was
  /// committed into the file, wherever that is now, so that nothing of it stays in the log for
  /// another file at the path. False if another program's reading prevents that.
  [[nodiscard]] bool leave();

  /// Raises the failure that `code` stands for, with the text of the last call; returns on success.
  void check(int code) const;

 private:
  struct closer {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };

  void open(const std::string& name, access access);

  /// Raises if the connection is amid another call that shows its wait.
  [[nodiscard]] sqlite_lock_wait::call begin_call() const;

  store_place place_;
  std::unique_ptr<sqlite_lock_wait> wait_;  // stays where it is, as the handle calls it
  std::unique_ptr<sqlite3, closer> handle_;
};

}  // namespace ADODB
