#include "tool/print_text.h"

#include <array>

namespace rule_store {
namespace {

using words = std::array<const char*, 4>;  // by method; a method outside the words shows its code

constexpr words text_words{nullptr, "contains", "begins with", "is"};
constexpr words from_words{nullptr, "from", "after", nullptr};
constexpr words to_words{nullptr, "to", "before", nullptr};

std::string comparison(const char* end, const bound& with, const words& known) {
  const std::string code = with.method.text();
  const bool has_word =
      code.size() == 1 && code[0] >= '1' && code[0] <= '3' && known[code[0] - '0'];
  const std::string how = has_word ? known[code[0] - '0'] : end + (" method " + quoted(code));
  return " " + how + " " + quoted(with.value.text());
}

std::string range(const bound& from, const bound& to) {
  return (from.value.is_null() ? "" : comparison("lower", from, from_words)) +
         (to.value.is_null() ? "" : comparison("upper", to, to_words));
}

}  // namespace

std::string quoted(std::string_view text) {
  constexpr std::string_view special = "\n\r\t\"\\";
  constexpr std::string_view escaped = "nrt\"\\";
  std::string result = "\"";
  for (const char letter : text) {
    const std::size_t place = special.find(letter);
    if (place == std::string_view::npos) {
      result += letter;
    } else {
      result += {'\\', escaped[place]};
    }
  }
  return result + '"';
}

std::string line_text(const line_row& line) {
  if (line.use_type == "S") return "text" + comparison("whole", line.text, text_words);
  if (line.use_type == "D") return "date" + range(line.date_from, line.date_to);
  if (line.use_type == "N") return "number" + range(line.number_from, line.number_to);
  if (line.use_type != "B") return "line of type " + quoted(line.use_type);
  return line.answer.is_null() ? "unanswered" : line.answer.truth() ? "yes" : "no";
}

}  // namespace rule_store
