#include "store/text_values.h"

#include <algorithm>
#include <charconv>

#include "store/text.h"

namespace ADODB {
namespace {

std::optional<int> digits(std::string_view text) {
  if (!std::ranges::all_of(text, is_digit)) return {};
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

std::optional<double> read_number(std::string_view text) {
  text = trimmed(text);
  if (text.empty() || text.starts_with("+-")) return {};
  if (text.front() == '+') text.remove_prefix(1);
  // from_chars reads "inf" and "nan" too.
  const bool plain = std::ranges::all_of(text, [](char c) {
    return is_digit(c) || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
  });
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (!plain || error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

std::optional<std::chrono::sys_days> read_date(std::string_view text) {
  if (text.size() != 10 || text[4] != text[7] || is_digit(text[4])) return {};
  const auto year = digits(text.substr(0, 4));
  const auto month = digits(text.substr(5, 2));
  const auto day = digits(text.substr(8, 2));
  if (!year || *year == 0 || !month || !day) return {};
  const auto date = std::chrono::year(*year) / std::chrono::month(static_cast<unsigned>(*month)) /
                    std::chrono::day(static_cast<unsigned>(*day));
  if (!date.ok()) return {};
  return std::chrono::sys_days(date);
}

}  // namespace ADODB
