#include "tool/json_text.h"

#include <array>
#include <cstdint>

#include "store/text.h"

namespace rule_store {
namespace {

std::uint8_t byte_at(std::string_view text, std::size_t position) {
  return static_cast<std::uint8_t>(text[position]);
}

/// How many bytes a character has that begins with this one; 0 if none does.
std::size_t length_by_first_byte(std::uint8_t first) {
  if (first < 0x80) return 1;
  if (first < 0xC2) return 0;  // a following byte, or a longer form than the character needs
  if (first < 0xE0) return 2;
  if (first < 0xF0) return 3;
  return first < 0xF5 ? 4 : 0;
}

/// How many bytes the character at the beginning of the text has; 0 if there is none.
std::size_t first_character(std::string_view text) {
  const std::uint8_t first = byte_at(text, 0);
  const std::size_t length = length_by_first_byte(first);
  if (length < 2) return length;
  if (text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if (ADODB::begins_character(text[i])) return 0;
  const std::uint8_t second = byte_at(text, 1);
  const bool needless = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool surrogate = first == 0xED && second >= 0xA0;
  const bool beyond_last = first == 0xF4 && second >= 0x90;
  return needless || surrogate || beyond_last ? 0 : length;
}

std::string escaped(char letter) {
  constexpr std::string_view special = "\"\\\n\r\t";
  constexpr std::string_view names = "\"\\nrt";
  const std::size_t place = special.find(letter);
  if (place != std::string_view::npos) return {'\\', names[place]};
  constexpr std::string_view hex = "0123456789abcdef";
  const auto code = static_cast<std::uint8_t>(letter);
  return std::string("\\u00") + hex[code / 16] + hex[code % 16];
}

bool needs_escape(char letter) {
  const auto code = static_cast<std::uint8_t>(letter);
  return code < 0x20 || code == 0x7F || letter == '"' || letter == '\\';
}

std::size_t digits(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  while (end < text.size() && ADODB::is_digit(text[end])) ++end;
  return end - begin;
}

bool has_at(std::string_view text, std::size_t position, std::string_view letters) {
  return position < text.size() && letters.find(text[position]) != std::string_view::npos;
}

}  // namespace

std::string json_string(std::string_view text) {
  std::string result = "\"";
  while (!text.empty()) {
    const std::size_t length = first_character(text);
    if (length == 0) {
      result += "\uFFFD";
    } else if (needs_escape(text[0])) {
      result += escaped(text[0]);
    } else {
      result += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return result + '"';
}

bool is_json_number(std::string_view text) {
  std::size_t at = has_at(text, 0, "-") ? 1 : 0;
  const std::size_t whole = digits(text, at);
  if (whole == 0 || (whole > 1 && text[at] == '0')) return false;
  at += whole;
  if (has_at(text, at, ".")) {
    const std::size_t fraction = digits(text, at + 1);
    if (fraction == 0) return false;
    at += fraction + 1;
  }
  return at == text.size();
}

}  // namespace rule_store
