#pragma once

#include <memory>
#include <string_view>

#include "store/connection_string.h"
#include "store/recordset.h"
#include "store/sql.h"

namespace ADODB {

/// What a transaction is begun for. One that looks holds nobody up before it writes, but may then
/// find itself stale. One that writes waits for other writers at its beginning, where the engine
/// locks a store as a whole.
enum class purpose { looking, writing };

/// What a database must give to stand behind a Connection. Every failure is an Error.
class engine {
 public:
  engine() = default;
  engine(const engine&) = delete;
  engine& operator=(const engine&) = delete;
  virtual ~engine() = default;

  /// Runs a statement of the program. Its words are prepared at their first use and kept.
  [[nodiscard]] virtual result execute(const statement& statement) = 0;

  /// Runs the one statement that a bare text holds; one with a second behind it is refused unrun.
  [[nodiscard]] virtual result execute(std::string_view text) = 0;

  virtual void begin(purpose purpose) = 0;
  virtual void commit() = 0;
  virtual void rollback() = 0;
};

/// Opens the engine that `settings.driver` names.
[[nodiscard]] std::unique_ptr<engine> open_engine(const connection_settings& settings);

}  // namespace ADODB
