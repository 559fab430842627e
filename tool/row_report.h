#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tool/store_rows.h"

namespace rule_store {

/// What there is to say about rows of a store, a line each.
class row_report {
 public:
  /// `numbers` name the row within its table.
  void add(std::string_view table, std::initializer_list<key> numbers, std::string_view text);

  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

/// "3", "null" or "no number".
[[nodiscard]] std::string text_of(key number);

/// Whether a row may have this number.
[[nodiscard]] constexpr bool is_key(key number) {
  return number >= 1 && number <= highest_key;
}

/// Every loop that the parents of rows form, once, as text: "3 under 7 under 3".
[[nodiscard]] std::map<key, std::string> loops_in(const std::map<key, key>& parents);

}  // namespace rule_store
