#pragma once

#include <memory>
#include <string_view>

#include "store/connection_string.h"
#include "store/recordset.h"

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

  /// Runs exactly one statement; a text with a second one behind it is refused unrun.
  [[nodiscard]] virtual result execute(std::string_view statement) = 0;

  virtual void begin(purpose purpose) = 0;
  virtual void commit() = 0;
  virtual void rollback() = 0;
};

/// Opens the engine that `settings.driver` names.
[[nodiscard]] std::unique_ptr<engine> open_engine(const connection_settings& settings);

}  // namespace ADODB
