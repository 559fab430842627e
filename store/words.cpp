#include "store/words.h"

#include <array>
#include <charconv>

namespace ADODB {

std::string fingerprint::text() const {
  std::string digits(32, '0');
  for (const auto& [number, end] : {std::pair(first_, 16), std::pair(second_, 32)}) {
    std::array<char, 16> written;
    const char* const written_end =
        std::to_chars(written.data(), written.data() + written.size(), number, 16).ptr;
    const auto size = static_cast<std::size_t>(written_end - written.data());
    digits.replace(end - size, size, written.data(), size);
  }
  return digits;
}

std::string words::with_parameters(parameter_form form) const {
  std::string result;
  place_finder places(text_);
  std::size_t copied = 0;
  for (std::size_t number = 1; const auto found = places.next(); ++number) {
    result += text_.substr(copied, found->begin - copied);
    result += form == parameter_form::numbered ? '$' + std::to_string(number) : "?";
    copied = found->end;
    // A quote ends a text by itself, but "$1where" would be read as one name.
    if (copied < text_.size() && (is_letter(text_[copied]) || is_digit(text_[copied])))
      result += ' ';
  }
  return result += text_.substr(copied);
}

}  // namespace ADODB
