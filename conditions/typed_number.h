#pragma once

#include <optional>
#include <string_view>

namespace ta_vorlumine {

/// The number that a typed text stands for, in just the forms that the store takes for a number:
/// an optional sign, digits with an optional point, an optional exponent, blanks around. Nothing
/// for any other text, such as full-width digits or thousands separators.
[[nodiscard]] std::optional<double> typed_number(std::string_view text);

}  // namespace ta_vorlumine
