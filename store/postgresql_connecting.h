#pragma once

#include <libpq-fe.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/connection_string.h"

namespace ADODB {

struct connection_closer {
  void operator()(PGconn* connection) const { PQfinish(connection); }
};
using postgresql_handle = std::unique_ptr<PGconn, connection_closer>;

/// Connects to the existing database that the settings name: of several hosts the first that takes
/// writes, or that answers if the store is to be read. Whether it could, PQstatus tells. A user
/// who is shown the wait can end it, which raises Error.
[[nodiscard]] postgresql_handle connect(const connection_settings& settings);

/// What this program wants of the server beside its answers, as texts of statements.
class server_settings {
 public:
  explicit server_settings(const time_limits& limits);

  /// Gives a row and sets them for the session if `process` serves it. No row and nothing is set in
  /// a session that a pool lends out: there the next user would get them.
  [[nodiscard]] std::string of_session_of(int process) const;
  /// A select. What it sets ends with the transaction, be it one for a single statement.
  [[nodiscard]] std::string of_transaction() const { return select("true"); }
  /// The same without taking the snapshot that a select takes.
  [[nodiscard]] std::string behind_begin() const;

 private:
  [[nodiscard]] std::string select(const std::string& is_local) const;

  std::vector<std::pair<std::string, std::string>> names_and_values_;
};

}  // namespace ADODB
