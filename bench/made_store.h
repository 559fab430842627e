#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace bench {

using database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

/// A store in a folder of its own, filled by plain C calls.
class made_store {
 public:
  made_store();
  made_store(const made_store&) = delete;
  made_store& operator=(const made_store&) = delete;
  ~made_store();

  [[nodiscard]] std::string connect_string() const;
  /// A connection as the references use it: no layer between them and the engine.
  [[nodiscard]] database bare() const;

  /// 200 nested folders, `definitions` definitions spread over them, and one to three values each
  /// for a tenth of these.
  void fill_titles(int definitions);
  /// Definition 1 with `rows` rule rows: tests 30 levels deep, conditions of two lines, values.
  void fill_rules(int rows);
  /// Adds a folder of the key `folder` with `definitions` definitions, one value each.
  void add_folder(int folder, int definitions);

 private:
  std::filesystem::path folder_;
};

/// Runs one statement text, unprepared, and keeps nothing of its rows; `row` sees each.
void send(sqlite3* database, const std::string& statement,
          const std::function<void(sqlite3_stmt*)>& row = {});

}  // namespace bench
