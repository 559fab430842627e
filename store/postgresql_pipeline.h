#pragma once

#include <cstddef>
#include <deque>
#include <exception>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

#include "store/engine.h"
#include "store/postgresql_prepared_statements.h"
#include "store/postgresql_session.h"

namespace ADODB {

/// Statements that go to the server together, in one round trip; those that it has not prepared yet
/// are prepared on the way, but for a session of a pool. Sending and reading take turns, so that
/// neither side waits for the other to read, however many there are. Outside a transaction they are
/// one to the server.
class postgresql_pipeline {
 public:
  postgresql_pipeline(postgresql_session& session, postgresql_prepared_statements& prepared,
                      std::span<const statement> statements, const result_taker& take);

  /// Hands over the results in the order of the statements, up to the first refusal, which it
  /// gives; no statement behind that has been run. Nothing if there is none. A connection that is
  /// lost raises Error. What `take` raises goes on to the caller, but the statements are run all
  /// the same.
  [[nodiscard]] postgresql_answer run();

 private:
  struct awaited_answer {
    std::string name;  ///< of the statement
    enum { to_settings, to_preparation, to_statement } what;
  };

  void send_some();
  void send_settings();
  void send_next();
  void send(const statement& next, const std::vector<bound_value>& values);
  void read_some();
  void read(postgresql_answer answer);
  void hand_over(const std::string& name, const PGresult* answer);
  [[nodiscard]] bool has_more() const;

  postgresql_session& session_;
  postgresql_prepared_statements& prepared_;
  std::span<const statement> statements_;
  const result_taker& take_;
  std::size_t sent_ = 0;
  std::deque<awaited_answer> awaited_;
  std::unordered_set<std::string> announced_;  ///< prepared by what has been sent
  postgresql_answer refusal_;
  std::exception_ptr unsendable_;  ///< why the next statement can't be sent
  std::exception_ptr raised_;      ///< by take_
  bool is_closed_ = false;         ///< the server knows that nothing more comes
  bool is_over_ = false;
};

}  // namespace ADODB
