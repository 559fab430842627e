#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tool/store_rows.h"

namespace rule_store {

/// The faults found in a store, a line each.
class fault_list {
 public:
  /// `numbers` name the row within its table.
  void add(std::string_view table, std::initializer_list<key> numbers, std::string_view fault);

  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

/// "3", or "null".
[[nodiscard]] std::string text_of(key number);

/// Every loop that the parents of rows form, once, as text: "3 under 7 under 3".
[[nodiscard]] std::map<key, std::string> loops_in(const std::map<key, key>& parents);

}  // namespace rule_store
