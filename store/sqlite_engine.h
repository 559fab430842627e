#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/engine.h"
#include "store/sqlite_database.h"
#include "store/statement_shape.h"

namespace ADODB {

/// SQLite behind a connection. A store, which is what has a table seqno, is put into WAL mode for
/// good, so that other programs read it at any time; any other database is opened as it is.
class sqlite_engine : public engine {
 public:
  /// Opens the existing file at `path` (UTF-8).
  explicit sqlite_engine(const std::string& path);

  [[nodiscard]] result execute(std::string_view statement) override;
  void begin(purpose purpose) override;
  void commit() override;
  void rollback() override;

 private:
  struct kept_statement {
    sqlite_statement handle;
    int preparations = 0;  ///< how often SQLite had prepared it anew when the columns were read
    column_names columns;
    std::vector<bool> is_boolean;
  };
  struct text_hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  [[nodiscard]] kept_statement& statement_of(const std::string& shape);
  void bind(sqlite3_stmt* statement, const std::vector<literal>& literals) const;
  [[nodiscard]] result run(kept_statement& statement);

  sqlite_database database_;
  std::unordered_map<std::string, kept_statement, text_hash, std::equal_to<>> statements_;
  bool in_transaction_ = false;
};

}  // namespace ADODB
