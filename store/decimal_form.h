#pragma once

#include <string>
#include <string_view>

namespace ADODB {

/// A number by its decimal digits: 0.DIGITS times ten to the power of `exponent`, with no zero at
/// either end of the digits. Two are equal just when the numbers are.
struct decimal_form {
  std::string digits;  ///< empty for 0
  long exponent = 0;
  bool is_negative = false;

  friend bool operator==(const decimal_form&, const decimal_form&) = default;
};

/// Of digits with an optional minus, point and exponent.
[[nodiscard]] decimal_form decimal_form_of(std::string_view number);

/// Of the fewest digits that read back as the same real, which must be finite.
[[nodiscard]] decimal_form decimal_form_of(double number);

/// Written without an exponent.
[[nodiscard]] std::string text_of(const decimal_form& number);

}  // namespace ADODB
