#pragma once

#include <libpq-fe.h>

#include <future>
#include <memory>
#include <string>
#include <vector>

#include "store/connection_string.h"
#include "store/postgresql_connecting.h"
#include "store/postgresql_values.h"

namespace ADODB {

struct answer_deleter {
  void operator()(PGresult* answer) const { PQclear(answer); }
};
/// The answer of the server to one request: rows, or a failure that check() raises.
using postgresql_answer = std::unique_ptr<PGresult, answer_deleter>;

/// Whether check() raises something for the answer.
[[nodiscard]] bool is_failure(const PGresult* answer);

/// One session on a PostgreSQL server. Used by one thread at a time. Every failure is an Error; one
/// of the kind lost_connection ends the session for good. A call waits as long as a statement may
/// take, and a little longer for the answer: then it cancels the statement and gives up the
/// session.
class postgresql_session {
 public:
  /// Connects to the existing database that the settings name, which must be writable unless it is
  /// to be read.
  explicit postgresql_session(const connection_settings& settings);

  /// Whether a pool lends the server's side of this session, to others too, for a transaction or a
  /// statement at a time. Nothing can be prepared there.
  [[nodiscard]] bool is_pooled() const { return is_pooled_; }

  /// Runs the one statement that the text holds, in one round trip. A refusal is in the answer.
  [[nodiscard]] postgresql_answer execute_text(const std::string& text,
                                               const std::vector<bound_value>& values);

  /// Begins a transaction by the words given.
  void begin(const std::string& words);

  /// Ends a transaction for good. A server that waits for its standby meanwhile is never cut short.
  void commit();

  /// Runs all statements of a text and drops their rows.
  void run(const std::string& script);

  /// Raises the failure that the answer holds, if it holds one.
  void check(const PGresult* answer);

  [[nodiscard]] bool is_lost() const { return !handle_; }

  /// Whether the session is lost, or turns out to be as the other side has ended it since.
  [[nodiscard]] bool has_ended();

  /// Whether it was lost because the server gave no answer in time.
  [[nodiscard]] bool was_given_up() const { return was_given_up_; }

  /// Whether a transaction that was begun still takes statements: a failure may have ended it.
  [[nodiscard]] bool has_transaction() const;

  /// The name of the encoding in which the database holds its texts.
  [[nodiscard]] std::string encoding() const;

 private:
  friend class postgresql_pipeline;  // sends many statements at once

  PGconn* handle_or_fail() const;
  void use_settings();
  void refuse_pool_of_statements();
  [[nodiscard]] int send(const std::string& text, const std::vector<bound_value>& values);
  [[nodiscard]] int send_preparation(const std::string& name, const std::string& text,
                                     const std::vector<bound_value>& values);
  [[nodiscard]] int send_prepared(const std::string& name, const std::vector<bound_value>& values);
  void require_sent(int sent);
  [[nodiscard]] postgresql_answer execute_with_settings(const std::string& text,
                                                        const std::vector<bound_value>& values);
  [[nodiscard]] postgresql_answer answer_to(int sent);
  void wait(bool has_more_to_send = false);
  void go_on_waiting(patience& wait);
  void settle_cancel();
  [[noreturn]] void give_up();
  [[noreturn]] void lose(const std::string& reason);

  time_limits limits_;
  server_settings settings_;
  postgresql_handle handle_;
  std::string password_;
  bool is_pooled_ = false;
  wait_display while_waiting_;
  bool is_committing_ = false;
  bool is_shown_waiting_ = false;
  bool was_given_up_ = false;
  std::future<void> cancel_;  // on its way since the user ended the wait for a statement
};

}  // namespace ADODB
