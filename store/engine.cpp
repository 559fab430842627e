#include "store/engine.h"

#include "store/error.h"
#include "store/sqlite_engine.h"

namespace ADODB {

std::unique_ptr<engine> open_engine(const connection_settings& settings) {
  if (settings.driver == "sqlite")
    return std::make_unique<sqlite_engine>(settings.values.at("database"));
  throw Error(failure_kind::other, "this program has no engine for the driver " + settings.driver);
}

}  // namespace ADODB
