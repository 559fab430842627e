#include "bare_connection.h"

namespace bench {

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
