#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "bare_connection.h"
#include "tests/server_database.h"

namespace bench {

enum class engine { sqlite, postgresql };

/// A store of its own, filled by plain calls: a file in a folder, or a database on the server that
/// scripts/postgresql_server has started.
class made_store {
 public:
  explicit made_store(engine behind);
  made_store(const made_store&) = delete;
  made_store& operator=(const made_store&) = delete;
  ~made_store();

  [[nodiscard]] bool is_on_server() const { return database_.has_value(); }
  [[nodiscard]] const std::string& connect_string() const { return connect_string_; }
  /// The connection of the references.
  [[nodiscard]] bare_connection& bare() const { return *bare_; }

  /// 200 nested folders, `definitions` definitions spread over them, and one to three values each
  /// for a tenth of these.
  void fill_titles(int definitions);
  /// Definition 1 with `rows` rule rows: tests 30 levels deep, conditions of two lines, values.
  void fill_rules(int rows);
  /// Definition 1 with a text condition of `lines` lines, the number 1, in the rule row 2.
  void fill_condition(int lines);
  /// The statement that adds a line to that condition.
  [[nodiscard]] static std::string condition_line(int sno);
  /// Adds a folder of the key `folder` with `definitions` definitions, one value each.
  void add_folder(int folder, int definitions);

 private:
  std::filesystem::path folder_;
  std::optional<harness::server_database> database_;
  std::string connect_string_;
  std::unique_ptr<bare_connection> bare_;
};

}  // namespace bench
