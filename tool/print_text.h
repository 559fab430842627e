#pragma once

#include <string>
#include <string_view>

#include "tool/store_rows.h"

namespace rule_store {

/// The text in double quotes, on one line: line breaks, tabs, quotes and backslashes are escaped.
[[nodiscard]] std::string quoted(std::string_view text);

/// What a line compares with, in words. Codes that have no word stand as they are.
[[nodiscard]] std::string line_text(const line_row& line);

}  // namespace rule_store
