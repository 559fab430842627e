#include "bare_connection.h"

#include "bare_postgresql.h"
#include "bare_sqlite.h"
#include "store/connection_string.h"

namespace bench {

std::unique_ptr<bare_connection> open_bare(const std::string& connect_string) {
  const ADODB::connection_settings settings = ADODB::read_connection_string(connect_string);
  if (settings.driver == "sqlite")
    return std::make_unique<bare_sqlite>(settings.values.at("database"));
  return std::make_unique<bare_postgresql>(settings.values);
}

void look_up(bare_connection& connection, way asked, const std::string& statement,
             const std::string& value, const row_reader& reader) {
  if (asked == way::prepared) {
    connection.send_prepared(statement, value, reader);
    return;
  }
  std::string text = statement;
  const bool is_number = value.find_first_not_of("0123456789") == std::string::npos;
  text.replace(text.find("$1"), 2, is_number ? value : "'" + value + "'");
  connection.send(text, reader);
}

}  // namespace bench
