#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "store/value.h"

namespace ADODB {

/// The cells of a result, row after row, each added at the end. All texts (UTF-8) stand in one
/// piece of memory, so that a full store's rows are read without a piece for each.
class result_cells {
 public:
  void add_null() { cells_.emplace_back(); }
  void add(std::int64_t number) { cells_.emplace_back(number); }
  void add(double number) { cells_.emplace_back(number); }
  void add(std::same_as<bool> auto answer) { cells_.emplace_back(answer); }
  void add(std::string_view text);

  void reserve(std::size_t count) { cells_.reserve(count); }
  [[nodiscard]] std::size_t capacity() const { return cells_.capacity(); }
  [[nodiscard]] std::size_t size() const { return cells_.size(); }
  [[nodiscard]] Value at(std::size_t position) const;  ///< below size()

 private:
  /// Where a text begins, and in the lower half its size. Two numbers of 32 bits would travel
  /// through a vector register at each cell, which takes longer than to copy the text.
  enum class text_place : std::uint64_t {};

  std::vector<std::variant<std::monostate, std::int64_t, double, bool, text_place>> cells_;
  std::string texts_;
};

}  // namespace ADODB
