#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include "store/connection_string.h"
#include "store/recordset.h"
#include "store/sql.h"

namespace ADODB {

/// What a transaction is begun for. A looking one locks nothing before its first write, which is
/// refused as stale if another program has written meanwhile. A writing one waits for other writers
/// at its beginning, on an engine that locks the whole store for one writer.
enum class purpose { looking, writing };

/// Takes the results of many statements, one after the other. It runs no statement itself.
using result_taker = std::function<void(result)>;

/// What a Connection needs of a database. Used by one thread at a time. Every failure is an Error.
class engine {
 public:
  engine() = default;
  engine(const engine&) = delete;
  engine& operator=(const engine&) = delete;
  virtual ~engine() = default;

  /// Runs a statement of the program. Its words are prepared at their first use and kept.
  [[nodiscard]] virtual result execute(const statement& statement) = 0;

  /// Runs the one statement that the text holds. A text of several is refused before any is run.
  [[nodiscard]] virtual result execute(std::string_view text) = 0;

  /// Runs them in order and hands each result over as it comes. The first failure ends them: the
  /// results before it have been handed over, and no statement behind it has been run.
  virtual void execute_all(std::span<const statement> statements, const result_taker& take);

  virtual void begin(purpose purpose) = 0;
  virtual void commit() = 0;
  virtual void rollback() = 0;
};

/// Opens the engine that `settings.driver` names.
[[nodiscard]] std::unique_ptr<engine> open_engine(const connection_settings& settings);

}  // namespace ADODB
