#include "tool/copied_tables.h"

#include <string>

namespace rule_store {

table_rows read_rows(ADODB::Connection& connection, const progress& tell) {
  table_rows rows;
  for (const copied_table& table : copied_tables) {
    tell("reading " + std::string(table.name));
    rows.push_back(connection.Execute(table.select));
  }
  return rows;
}

table_rows read_rows(const std::string& connect_string, const progress& tell) {
  ADODB::Connection connection;
  connection.Open(connect_string, ADODB::access::reading);
  connection.BeginTrans();
  table_rows rows = read_rows(connection, tell);
  connection.RollbackTrans();
  return rows;
}

}  // namespace rule_store
