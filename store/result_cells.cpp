#include "store/result_cells.h"

#include <limits>
#include <type_traits>

#include "store/error.h"

namespace ADODB {
namespace {

constexpr int size_bits = 32;
constexpr std::uint64_t most_bytes = std::numeric_limits<std::uint32_t>::max();

}  // namespace

void result_cells::add(std::string_view text) {
  if (text.size() > most_bytes - texts_.size())
    throw Error(failure_kind::other, "the texts of the result are too large");
  cells_.emplace_back(static_cast<text_range>(texts_.size() << size_bits | text.size()));
  texts_ += text;
}

Value result_cells::at(std::size_t position) const {
  const auto value_of = [this]<class Content>(const Content& content) {
    if constexpr (std::is_same_v<Content, std::monostate>) {
      return Value();
    } else if constexpr (std::is_same_v<Content, text_range>) {
      const auto range = static_cast<std::uint64_t>(content);
      return Value(texts_.substr(range >> size_bits, range & most_bytes));
    } else {
      return Value(content);
    }
  };
  return std::visit(value_of, cells_[position]);
}

}  // namespace ADODB
