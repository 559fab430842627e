#include "store/decimal_form.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace ADODB {
namespace {

void remove_zeros(decimal_form& form) {
  const std::size_t first = std::min(form.digits.find_first_not_of('0'), form.digits.size());
  form.digits.erase(0, first);
  form.exponent -= static_cast<long>(first);
  form.digits.erase(form.digits.find_last_not_of('0') + 1);
  if (form.digits.empty()) form = {};
}

}  // namespace

decimal_form decimal_form_of(std::string_view number) {
  decimal_form form;
  form.is_negative = number.starts_with('-');
  if (form.is_negative) number.remove_prefix(1);
  const std::size_t mantissa = std::min(number.find_first_of("eE"), number.size());
  if (mantissa < number.size()) {
    std::string_view power = number.substr(mantissa + 1);
    if (power.starts_with('+')) power.remove_prefix(1);
    int exponent = 0;  // stays 0 where no number of an engine would reach
    std::from_chars(power.data(), power.data() + power.size(), exponent);
    form.exponent = exponent;
  }
  form.digits = number.substr(0, mantissa);
  const std::size_t point = std::min(form.digits.find('.'), mantissa);
  form.exponent += static_cast<long>(point);
  if (point < mantissa) form.digits.erase(point, 1);
  remove_zeros(form);
  return form;
}

decimal_form decimal_form_of(double number) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::scientific);
  return decimal_form_of(std::string_view(text.data(), end.ptr));
}

std::string text_of(const decimal_form& number) {
  std::string digits = number.digits;
  if (digits.empty()) return "0";
  const auto size = static_cast<long>(digits.size());
  if (number.exponent <= 0)
    digits = "0." + std::string(static_cast<std::size_t>(-number.exponent), '0') + digits;
  else if (number.exponent >= size)
    digits.append(static_cast<std::size_t>(number.exponent - size), '0');
  else
    digits.insert(static_cast<std::size_t>(number.exponent), 1, '.');
  return (number.is_negative ? "-" : "") + digits;
}

}  // namespace ADODB
