#pragma once

#include <string>
#include <string_view>

#include "tool/store_rows.h"

namespace rule_store {

/// The text in double quotes, on one line: line breaks, tabs, quotes and backslashes are escaped.
[[nodiscard]] std::string quoted(std::string_view text);

/// A folder or definition by its title.
[[nodiscard]] std::string title_text(const title_row& row);

/// A node of a rule tree: the field that it tests, the kind of condition, or a value's title.
[[nodiscard]] std::string rule_text(const rule_row& row, const store_rows& rows);

/// What a value gives.
[[nodiscard]] std::string content_text(const rule_row& row, const store_rows& rows);

/// What a line compares with, in words. Codes that have no word stand as they are.
[[nodiscard]] std::string line_text(const line_row& line);

}  // namespace rule_store
