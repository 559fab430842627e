#include "store/words.h"

namespace ADODB {

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
