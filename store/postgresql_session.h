#pragma once

#include <libpq-fe.h>

#include <memory>
#include <string>
#include <vector>

#include "store/connection_string.h"
#include "store/postgresql_values.h"

namespace ADODB {

struct answer_deleter {
  void operator()(PGresult* answer) const { PQclear(answer); }
};
/// The answer of the server to one request: rows, or a failure that check() raises.
using postgresql_answer = std::unique_ptr<PGresult, answer_deleter>;

/// One session on a PostgreSQL server. Used by one thread at a time. Every failure is an Error; one
/// of the kind lost_connection ends the session for good. A call waits 30 seconds at most.
class postgresql_session {
 public:
  /// Connects to the existing database that the settings name, which must be writable unless it is
  /// to be read.
  explicit postgresql_session(const connection_settings& settings);

  /// Prepares the one statement that the text holds, for parameters of the types of `values`. A
  /// name stands for one text and its types: a session of a pool that has it already has it from
  /// another program that runs the same statement.
  void prepare(const std::string& name, const std::string& text,
               const std::vector<bound_value>& values);

  /// Runs a prepared statement in one round trip. A refusal is in the answer, not yet raised.
  [[nodiscard]] postgresql_answer execute(const std::string& name,
                                          const std::vector<bound_value>& values);

  /// Runs the one statement that the text holds, in one round trip.
  [[nodiscard]] postgresql_answer execute(const std::string& text);

  /// Runs all statements of a text and drops their rows.
  void run(const std::string& script);

  /// Raises the failure that the answer holds, if it holds one.
  void check(const PGresult* answer);

  [[nodiscard]] bool is_lost() const { return !handle_; }

  /// Whether a transaction that was begun still takes statements: a failure may have ended it.
  [[nodiscard]] bool has_transaction() const;

  /// The name of the encoding in which the database holds its texts.
  [[nodiscard]] std::string encoding() const;

 private:
  struct closer {
    void operator()(PGconn* connection) const { PQfinish(connection); }
  };

  PGconn* handle_or_fail() const;
  [[nodiscard]] postgresql_answer answer_to(int sent);
  void wait();
  [[noreturn]] void lose(const std::string& reason);

  std::unique_ptr<PGconn, closer> handle_;
  std::string password_;
};

}  // namespace ADODB
