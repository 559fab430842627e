#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace ADODB {

// Letters as statements and names mean them: ASCII only, whatever the locale.

[[nodiscard]] constexpr bool is_digit(char letter) {
  return letter >= '0' && letter <= '9';
}

/// The letter in lower case; anything but A to Z stays as it is.
[[nodiscard]] constexpr char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

[[nodiscard]] constexpr bool is_letter(char letter) {
  return lower(letter) >= 'a' && lower(letter) <= 'z';
}

[[nodiscard]] inline std::string lower(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](char letter) { return lower(letter); });
  return result;
}

/// Whether two names differ at most in the case of the letters A to Z.
[[nodiscard]] constexpr bool equal_in_any_case(std::string_view one, std::string_view other) {
  return std::ranges::equal(
      one, other, {}, [](char letter) { return lower(letter); },
      [](char letter) { return lower(letter); });
}

}  // namespace ADODB
