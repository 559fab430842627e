#include "store/key_counters.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace ADODB {
namespace {

// The name becomes part of a statement as it is, so nothing but a counter may come through.
std::string counter_column(std::string_view name) {
  constexpr std::array<std::string_view, 3> counters = {"replace", "replace_m", "replace_cond"};
  if (std::ranges::find(counters, name) == counters.end())
    throw std::logic_error("no counter has the name " + std::string(name));
  return std::string(name);
}

}  // namespace

std::optional<std::int64_t> last_number(Connection& connection, std::string_view name) {
  const Recordset rows = connection.Execute("select " + counter_column(name) + " from seqno");
  if (rows.eof()) return std::nullopt;
  return rows.Fields().Item(0).Value().number();
}

void advance_number(Connection& connection, std::string_view name) {
  const std::string column = counter_column(name);
  connection.Execute("update seqno set " + column + " = " + column + "+1");
}

}  // namespace ADODB
