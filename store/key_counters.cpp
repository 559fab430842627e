#include "store/key_counters.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

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
  return last_number(connection.Execute(look_up_of(name)));
}

statement look_up_of(std::string_view name) {
  return sql(counter_of(name).read, {});
}

std::optional<std::int64_t> last_number(const Recordset& found) {
  if (found.eof()) return std::nullopt;
  return found.Fields().Item(0).Value().number();
}

statement advance_of(std::string_view name) {
  return sql(counter_of(name).advance, {});
}

void advance_number(Connection& connection, std::string_view name) {
  connection.Execute(advance_of(name));
}

}  // namespace ADODB
