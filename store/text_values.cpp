#include "store/text_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "store/decimal_form.h"
#include "store/text.h"

namespace ADODB {
namespace {

std::optional<int> digits(std::string_view text) {
  if (!std::ranges::all_of(text, is_digit)) return {};
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// Without the blanks around it and a plus in front, which from_chars doesn't take.
std::string_view without_plus(std::string_view number) {
  number = trimmed(number);
  const bool has_plus = number.starts_with('+') && !number.starts_with("+-");
  return has_plus ? number.substr(1) : number;
}

double beyond_reals(std::string_view number) {
  const decimal_form form = decimal_form_of(number);
  if (form.exponent <= 0) return 0;
  constexpr double infinity = std::numeric_limits<double>::infinity();
  return form.is_negative ? -infinity : infinity;
}

}  // namespace

std::optional<double> read_number(std::string_view text) {
  text = without_plus(text);
  // from_chars reads "inf" and "nan" too.
  const bool plain = std::ranges::all_of(text, [](char c) {
    return is_digit(c) || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
  });
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (!plain || error == std::errc::invalid_argument || end != text.data() + text.size()) return {};
  return error == std::errc() ? number : beyond_reals(text);
}

std::optional<std::int64_t> read_whole_number(std::string_view text) {
  text = without_plus(text);
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

bool is_kept_exactly(std::string_view text) {
  if (read_whole_number(text)) return true;
  const auto number = read_number(text);
  return number && std::isfinite(*number) &&
         decimal_form_of(without_plus(text)) == decimal_form_of(*number);
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
