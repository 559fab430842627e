#include "conditions/typed_number.h"

#include <algorithm>
#include <charconv>

namespace ta_vorlumine {

std::optional<double> typed_number(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\n\r");
  if (first == std::string_view::npos) return {};
  text = text.substr(first, text.find_last_not_of(" \t\n\r") - first + 1);
  if (text.starts_with("+-")) return {};
  if (text.front() == '+') text.remove_prefix(1);
  // The words that stand for infinity and for no number are numbers to the conversion alone.
  const bool plain = std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
  });
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (!plain || error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

}  // namespace ta_vorlumine
