#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server_database.h"
#include "store/connection.h"

namespace harness {

/// A store made for one test, and a second connection that looks into it: a file in a folder of its
/// own, or a database on the server of the tests where on_server().
class test_store {
 public:
  test_store();
  test_store(const test_store&) = delete;
  test_store& operator=(const test_store&) = delete;
  ~test_store();

  [[nodiscard]] std::string connect_string() const;
  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

  void run(std::string_view statement);
  void run(const ADODB::statement& statement);
  void run_all(const std::vector<std::string>& statements);
  /// Runs a file of this folder, a statement for each semicolon at the end of a line.
  void run_script(const std::string& name);
  /// The rows of a select, the columns of a row separated by "|", null as "null".
  [[nodiscard]] std::vector<std::string> rows(std::string_view statement);
  /// The first column of the first row.
  [[nodiscard]] std::string value(std::string_view statement);
  /// The engine's own text on refusing the statement, which it must.
  [[nodiscard]] std::string refusal_of(std::string_view statement);
  /// The sample data, in place of the empty tables.
  void load_sample();
  /// Makes the store refuse `event` ("insert", "update", "delete") on `table` with the text given,
  /// for the rows that meet `when`, a condition on new and old.
  void refuse(const std::string& event, const std::string& table, const std::string& text,
              const std::string& when = "true");
  void stop_refusing();
  /// Lets this object's connection write what the checks of the tables refuse.
  void ignore_checks();

 private:
  std::filesystem::path folder_;
  std::optional<server_database> database_;
  ADODB::Connection connection_;
};

}  // namespace harness
