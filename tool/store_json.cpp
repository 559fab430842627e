#include "tool/store_json.h"

#include "tool/json_text.h"

namespace rule_store {
namespace {

/// A column of texts gives strings alone; another one also numbers, true and false.
std::string json_value(const ADODB::Value& cell, bool is_text) {
  if (cell.is_null()) return "null";
  if (!is_text && cell == ADODB::Value(true)) return "true";
  if (!is_text && cell == ADODB::Value(false)) return "false";
  const std::string text = cell.text();
  return !is_text && is_json_number(text) ? text : json_string(text);
}

void print_rows(const copied_table& table, const ADODB::Recordset& rows, std::ostream& output) {
  const std::vector<std::string_view> names = column_names(table);
  for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
    const ADODB::Fields cells = rows.Fields(row);
    output << (row == 0 ? "\n    {" : ",\n    {");
    for (std::size_t column = 0; column < names.size(); ++column) {
      output << (column == 0 ? "" : ", ") << json_string(names[column]) << ": "
             << json_value(cells.Item(column).Value(), table.insert.is_quoted(column));
    }
    output << '}';
  }
}

}  // namespace

void print_json(const table_rows& tables, std::ostream& output) {
  output << "{\n  \"format\": 1";
  for (const auto& [table, rows] : tables) {
    output << ",\n  " << json_string(table.name) << ": [";
    print_rows(table, rows, output);
    output << (rows.RecordCount() == 0 ? "]" : "\n  ]");
  }
  output << "\n}\n";
}

}  // namespace rule_store
