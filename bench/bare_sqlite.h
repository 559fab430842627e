#pragma once

#include <sqlite3.h>

#include <unordered_map>

#include "bare_connection.h"

namespace bench {

class bare_sqlite : public bare_connection {
 public:
  explicit bare_sqlite(const std::string& path);
  void send(const std::string& statement, const row_reader& reader) override;
  void send_prepared(const std::string& statement, const std::string& value,
                     const row_reader& reader) override;
  void run_all(const std::string& script) override;

 private:
  struct closer {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using prepared_statement = std::unique_ptr<sqlite3_stmt, closer>;

  void check(int code) const;
  [[nodiscard]] prepared_statement prepare(const std::string& statement);
  void step_through(sqlite3_stmt* statement, const row_reader& reader);

  std::unique_ptr<sqlite3, closer> database_;
  std::unordered_map<std::string, prepared_statement> prepared_;
};

}  // namespace bench
