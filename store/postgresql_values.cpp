#include "store/postgresql_values.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "store/error.h"

namespace ADODB {
namespace {

// Type numbers of PostgreSQL, the same on every server.
constexpr Oid decided_by_server = 0;
constexpr Oid boolean_type = 16;
constexpr Oid int8_type = 20;
constexpr Oid int2_type = 21;
constexpr Oid int4_type = 23;
constexpr Oid float4_type = 700;
constexpr Oid float8_type = 701;
constexpr Oid numeric_type = 1700;

struct binding {
  bound_value operator()(std::monostate) const { return {decided_by_server, std::nullopt}; }
  bound_value operator()(bool answer) const { return {boolean_type, answer ? "t" : "f"}; }
  bound_value operator()(const decimal& number) const { return {numeric_type, number.digits}; }
  bound_value operator()(const quoted_number& number) const { return (*this)(number.text); }

  bound_value operator()(std::int64_t number) const {
    return {std::in_range<std::int32_t>(number) ? int4_type : int8_type, std::to_string(number)};
  }

  bound_value operator()(const std::string& text) const {
    refuse_zero_character(text);
    return {decided_by_server, text};
  }
};

template <typename Number>
void add_number_or_text(result_cells& cells, std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return cells.add(text);
  cells.add(number);
}

std::string_view without_needless_zeros(std::string_view digits) {
  if (digits.find('.') == std::string_view::npos) return digits;
  digits.remove_suffix(digits.size() - 1 - digits.find_last_not_of('0'));
  if (digits.ends_with('.')) digits.remove_suffix(1);
  return digits;
}

void add_cell(result_cells& cells, const PGresult* answer, int row, int column) {
  if (PQgetisnull(answer, row, column) == 1) return cells.add_null();
  const std::string_view text(PQgetvalue(answer, row, column),
                              static_cast<std::size_t>(PQgetlength(answer, row, column)));
  switch (PQftype(answer, column)) {
    case boolean_type:
      return cells.add(text == "t");
    case int2_type:
    case int4_type:
    case int8_type:
      return add_number_or_text<std::int64_t>(cells, text);
    case float4_type:
    case float8_type:
      return add_number_or_text<double>(cells, text);
    case numeric_type:
      return add_number_or_text<std::int64_t>(cells, without_needless_zeros(text));
    default:
      return cells.add(text);
  }
}

}  // namespace

bound_value bound(const parameter& value) {
  return std::visit(binding(), value);
}

void refuse_zero_character(std::string_view text) {
  if (text.find('\0') != std::string_view::npos)
    throw Error(failure_kind::other, "the server can't store a text with a zero character");
}

column_names columns_of(const PGresult* answer) {
  auto names = std::make_shared<std::vector<std::string>>();
  for (int column = 0; column < PQnfields(answer); ++column)
    names->emplace_back(PQfname(answer, column));
  return names;
}

result rows_of(const PGresult* answer, column_names columns) {
  result rows{std::move(columns), {}};
  const int width = PQnfields(answer);
  const int count = PQntuples(answer);
  rows.cells.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row)
    for (int column = 0; column < width; ++column) add_cell(rows.cells, answer, row, column);
  return rows;
}

}  // namespace ADODB
