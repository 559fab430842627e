#include "store/key_counters.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

#include "store/sql.h"

namespace ADODB {
namespace {

struct counter {
  std::string_view name;
  words read;
  words advance;
};

constexpr std::array<counter, 3> counters = {{
    {"replace", "select replace from seqno", "update seqno set replace = replace+1"},
    {"replace_m", "select replace_m from seqno", "update seqno set replace_m = replace_m+1"},
    {"replace_cond", "select replace_cond from seqno",
     "update seqno set replace_cond = replace_cond+1"},
}};

const counter& counter_of(std::string_view name) {
  const auto* const found = std::ranges::find(counters, name, &counter::name);
  if (found == counters.end())
    throw std::logic_error("no counter has the name " + std::string(name));
  return *found;
}

}  // namespace

std::optional<std::int64_t> last_number(Connection& connection, std::string_view name) {
  const Recordset rows = connection.Execute(sql(counter_of(name).read, {}));
  if (rows.eof()) return std::nullopt;
  return rows.Fields().Item(0).Value().number();
}

void advance_number(Connection& connection, std::string_view name) {
  connection.Execute(sql(counter_of(name).advance, {}));
}

}  // namespace ADODB
