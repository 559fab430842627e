#pragma once

#include <string>
#include <string_view>

namespace rule_store {

/// The text (UTF-8) as a JSON string, quotes included. Each byte that is part of no character
/// becomes U+FFFD.
[[nodiscard]] std::string json_string(std::string_view text);

/// Whether JSON takes the text for a number as it stands.
[[nodiscard]] bool is_json_number(std::string_view text);

}  // namespace rule_store
