#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "store/value.h"

namespace ADODB {

/// The cells of a result, row after row. All texts (UTF-8) share one string, so that reading many
/// rows takes no allocation for each of them.
class result_cells {
 public:
  void add_null() { cells_.emplace_back(); }
  void add(std::int64_t number) { cells_.emplace_back(number); }
  void add(double number) { cells_.emplace_back(number); }
  void add(std::same_as<bool> auto answer) { cells_.emplace_back(answer); }
  void add(std::string_view text);

  void reserve(std::size_t count) { cells_.reserve(count); }
  [[nodiscard]] std::size_t size() const { return cells_.size(); }
  [[nodiscard]] Value at(std::size_t position) const;  ///< below size()

 private:
  /// Of a text in texts_: where it begins in the upper 32 bits, its size in the lower. One number,
  /// because the compiler copies a pair of them through a vector register, which is slower.
  enum class text_range : std::uint64_t {};

  std::vector<std::variant<std::monostate, std::int64_t, double, bool, text_range>> cells_;
  std::string texts_;
};

}  // namespace ADODB
