#include "store/engine.h"

#include "store/postgresql_engine.h"
#include "store/sqlite_engine.h"

namespace ADODB {

void engine::execute_all(std::span<const statement> statements, const result_taker& take) {
  for (const statement& statement : statements) take(execute(statement));
}

std::unique_ptr<engine> open_engine(const connection_settings& settings) {
  if (settings.driver == "sqlite") return std::make_unique<sqlite_engine>(settings);
  return std::make_unique<postgresql_engine>(settings);
}

}  // namespace ADODB
