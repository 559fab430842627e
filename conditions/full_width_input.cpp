#include "conditions/full_width_input.h"

#include <algorithm>

#include "store/text_values.h"

namespace ta_vorlumine {
namespace {

std::string replaced(std::string_view text, std::string_view what, std::string_view by) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const bool found = text.substr(at).starts_with(what);
    result += found ? by : text.substr(at, 1);
    at += found ? what.size() : 1;
  }
  return result;
}

/// The plain form of a full-width character at the front of the text, 0 if there is none. Those
/// follow each other from U+FF01 on, as these do in ASCII; in UTF-8 the last byte of a code has its
/// last six bits, the middle one the six before.
char plain_character(std::string_view wide) {
  if (wide.size() < 3 || wide[0] != '\xEF') return 0;
  const int ascii = ((wide[1] & 0x3F) << 6 | (wide[2] & 0x3F)) - 0xF01 + '!';
  return ascii >= '!' && ascii <= '~' ? static_cast<char>(ascii) : '\0';
}

std::string plain(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const char character = plain_character(text.substr(at));
    result += character ? character : text[at];
    at += character ? 3 : 1;
  }
  return replaced(result, "−", "-");
}

/// Without its thousands separators, if one stands before every three digits and nowhere else.
std::string ungrouped(const std::string& number) {
  const std::size_t first = number.find_first_of("0123456789");
  if (first == std::string::npos) return number;
  const std::size_t end = std::min(number.find_first_not_of("0123456789,", first), number.size());
  for (std::size_t i = first; i < end; ++i) {
    const bool separator_due = (end - i) % 4 == 0;
    if ((number[i] == ',') != separator_due) return number;
  }
  return number.substr(0, first) + replaced(number.substr(first, end - first), ",", "") +
         number.substr(end);
}

}  // namespace

std::string plain_number(std::string_view text) {
  const std::string number = ungrouped(plain(text));
  return ADODB::read_number(number) ? number : std::string(text);
}

std::string plain_date(std::string_view text, char separator) {
  const std::string_view wanted(&separator, 1);
  return plain(replaced(replaced(text, "／", wanted), "・", wanted));
}

}  // namespace ta_vorlumine
