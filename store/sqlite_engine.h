#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/engine.h"
#include "store/sqlite_database.h"

namespace ADODB {

/// SQLite behind a connection. Opening changes nothing in the file: its journal mode stays.
/// If the file no longer lies at its path, whatever writes, and every transaction, fails with a
/// lost connection. The next command then opens what lies there; inside a transaction, the next one
/// after the rollback.
class sqlite_engine : public engine {
 public:
  /// Opens the existing file that the settings name.
  explicit sqlite_engine(const connection_settings& settings);

  [[nodiscard]] result execute(const statement& statement) override;
  [[nodiscard]] result execute(std::string_view text) override;
  void begin(purpose purpose) override;
  void commit() override;
  void rollback() override;

 private:
  struct prepared_statement {
    sqlite_statement handle;
    int preparations = 0;  ///< how often SQLite had prepared it anew when the columns were read
    column_names columns;
    std::vector<bool> is_boolean;
  };
  struct words_hash {
    std::size_t operator()(const words& text) const { return text.fingerprint().hash(); }
  };

  [[nodiscard]] sqlite_database open_store() const;
  [[nodiscard]] sqlite_database& usable_database();
  void require_in_place();
  [[nodiscard]] prepared_statement prepare(std::string_view text);
  [[nodiscard]] prepared_statement& kept_statement_of(const words& text);
  [[nodiscard]] result run(prepared_statement& statement, const std::vector<parameter>& parameters);
  void bind(sqlite3_stmt* statement, const std::vector<parameter>& parameters) const;
  [[nodiscard]] result rows_of(prepared_statement& statement,
                               const std::vector<parameter>& parameters);

  std::string path_;
  access access_;
  wait_display while_waiting_;
  std::chrono::seconds lock_limit_;
  std::optional<sqlite_database> database_;  ///< nothing once it was found to be taken away
  /// As many as there are different words in the program, at most.
  std::unordered_map<words, prepared_statement, words_hash> statements_;
  bool in_transaction_ = false;
};

}  // namespace ADODB
