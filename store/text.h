#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace ADODB {

// Digits, letters and blanks are those of ASCII here, whatever the locale. Texts are UTF-8.

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

/// The text without the blanks, tabs and line ends around it.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Whether a character (code point) begins with this byte; the other bytes of it follow.
[[nodiscard]] constexpr bool begins_character(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// How many characters (code points) the text has.
[[nodiscard]] constexpr std::size_t character_count(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, begins_character));
}

/// Whether two names differ at most in the case of the letters A to Z.
[[nodiscard]] constexpr bool equal_in_any_case(std::string_view one, std::string_view other) {
  return std::ranges::equal(
      one, other, {}, [](char letter) { return lower(letter); },
      [](char letter) { return lower(letter); });
}

}  // namespace ADODB
