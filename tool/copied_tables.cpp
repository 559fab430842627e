#include "tool/copied_tables.h"

#include <string>

namespace rule_store {

std::vector<std::string_view> column_names(const copied_table& table) {
  constexpr std::string_view before = "select ";
  std::string_view rest = table.select.substr(before.size());
  rest = rest.substr(0, rest.find(" from "));
  std::vector<std::string_view> names;
  for (;;) {
    const std::size_t end = rest.find(',');
    names.push_back(rest.substr(0, end));
    if (end == std::string_view::npos) return names;
    rest.remove_prefix(end + 1);
  }
}

table_rows read_rows(ADODB::Connection& connection, const progress& tell) {
  table_rows rows;
  for (const copied_table& table : copied_tables) {
    tell("reading " + std::string(table.name));
    rows.push_back({table, connection.Execute(table.select)});
  }
  return rows;
}

table_rows read_rows(const std::string& connect_string, const progress& tell) {
  ADODB::Connection connection;
  connection.Open(connect_string, ADODB::access::reading);
  connection.BeginTrans();
  return read_rows(connection, tell);
}

}  // namespace rule_store
