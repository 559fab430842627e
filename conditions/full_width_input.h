#pragma once

#include <string>
#include <string_view>

namespace ta_vorlumine {

// Input methods give full-width digits and signs, and a minus sign of their own beside those.

/// A number that was typed so, or with thousands separators, as the store takes it. Any other text
/// as it is.
[[nodiscard]] std::string plain_number(std::string_view text);

/// The text with plain digits, and `separator` for "／" and "・", the two that an input method
/// makes of "/".
[[nodiscard]] std::string plain_date(std::string_view text, char separator);

}  // namespace ta_vorlumine
