#pragma once

#include <functional>
#include <memory>
#include <string>

namespace bench {

/// A row of an answer, there as long as its reader runs.
class bare_row {
 public:
  bare_row() = default;
  bare_row(const bare_row&) = delete;
  bare_row& operator=(const bare_row&) = delete;
  virtual ~bare_row() = default;

  [[nodiscard]] virtual int columns() const = 0;
  [[nodiscard]] virtual const char* name(int column) const = 0;
  /// No text stands for null.
  [[nodiscard]] virtual const char* text(int column) const = 0;
};
using row_reader = std::function<void(const bare_row&)>;

/// Plain calls of an engine's C interface, as the references make them. Nothing of an answer is
/// kept. Every failure is a std::runtime_error.
class bare_connection {
 public:
  bare_connection() = default;
  bare_connection(const bare_connection&) = delete;
  bare_connection& operator=(const bare_connection&) = delete;
  virtual ~bare_connection() = default;

  /// Runs one statement text, unprepared; `reader` sees each row.
  virtual void send(const std::string& statement, const row_reader& reader = {}) = 0;
  /// Runs a statement that has a "$1", prepared when it is first seen, with the value for that.
  virtual void send_prepared(const std::string& statement, const std::string& value,
                             const row_reader& reader = {}) = 0;
  /// Runs all statements of a text in one transaction.
  virtual void run_all(const std::string& script) = 0;
};

[[nodiscard]] std::unique_ptr<bare_connection> open_bare_sqlite(const std::string& path);
[[nodiscard]] std::unique_ptr<bare_connection> open_bare_postgresql(
    const std::string& connect_string);

/// How a reference looks something up: as a text of its own each time, the value in the place of
/// the "$1", or prepared.
enum class way { as_text, prepared };
void look_up(bare_connection& connection, way asked, const std::string& statement,
             const std::string& value, const row_reader& reader = {});

}  // namespace bench
