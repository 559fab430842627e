#include "rules/statement_template.h"

#include <cctype>

namespace ta_vorlumine {
namespace {

bool is_token(std::string_view text, std::size_t at) {
  return at + 2 < text.size() && text[at] == '%' &&
         std::isdigit(static_cast<unsigned char>(text[at + 1])) &&
         std::isdigit(static_cast<unsigned char>(text[at + 2]));
}

}  // namespace

std::string fill_template(std::string_view statement, const std::vector<std::string>& values) {
  std::string filled;
  for (std::size_t at = 0; at < statement.size();) {
    if (!is_token(statement, at)) {
      filled += statement[at++];
      continue;
    }
    const auto number =
        static_cast<std::size_t>((statement[at + 1] - '0') * 10 + statement[at + 2] - '0');
    const std::string& value = values.at(number - 1);
    at += 3;
    const bool quoted = filled.ends_with('\'');
    if (value != null_value) {
      filled += value;
    } else {
      if (quoted) {
        filled.pop_back();
        ++at;  // the closing quote
      }
      filled += "null";
    }
  }
  return filled;
}

}  // namespace ta_vorlumine
