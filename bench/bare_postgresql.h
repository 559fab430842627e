#pragma once

#include <libpq-fe.h>

#include <map>
#include <unordered_map>

#include "bare_connection.h"

namespace bench {

class bare_postgresql : public bare_connection {
 public:
  /// The settings are those of a connection string.
  explicit bare_postgresql(const std::map<std::string, std::string>& settings);
  void send(const std::string& statement, const row_reader& reader) override;
  void send_prepared(const std::string& statement, const std::string& value,
                     const row_reader& reader) override;
  void run_all(const std::string& script) override;

 private:
  struct closer {
    void operator()(PGconn* connection) const { PQfinish(connection); }
  };

  void read(PGresult* answer, const row_reader& reader);

  std::unique_ptr<PGconn, closer> connection_;
  std::unordered_map<std::string, std::string> prepared_;  ///< names by statement
};

}  // namespace bench
