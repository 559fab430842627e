#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "store/connection.h"
#include "store/sql.h"

namespace ADODB {

/// The last number used of the counter `name` ("replace", "replace_m" or "replace_cond");
/// nothing if the table of counters has no row.
[[nodiscard]] std::optional<std::int64_t> last_number(Connection& connection,
                                                      std::string_view name);
/// The statement that reads it, and what its result says.
[[nodiscard]] statement look_up_of(std::string_view name);
[[nodiscard]] std::optional<std::int64_t> last_number(const Recordset& found);

/// The statement that adds 1 to the counter `name`.
[[nodiscard]] statement advance_of(std::string_view name);

/// Adds 1 to the counter `name`.
void advance_number(Connection& connection, std::string_view name);

}  // namespace ADODB
