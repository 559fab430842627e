#include "conditions/range_lines.h"

namespace ta_vorlumine {
namespace {

using ADODB::sql;

bool is_complete(const line_cells& row, std::size_t value, std::size_t method) {
  return !row[value].empty() && !row[method].empty();
}

// An end that lacks its value or its method is left out; a row without any end gives nothing.
std::optional<ADODB::statement> insert(const range_statements& statements, const line_cells& row) {
  const auto value = [&](std::size_t end) { return statements.bound(row[end]); };
  const bool lower = is_complete(row, from_value, from_method);
  const bool upper = is_complete(row, to_value, to_method);
  if (lower && upper) {
    return sql(statements.insert_both, {row[1], row[2], row[3], row[4], value(from_value),
                                        row[from_method], value(to_value), row[to_method]});
  }
  if (upper) {
    return sql(statements.insert_upper,
               {row[1], row[2], row[3], row[4], value(to_value), row[to_method]});
  }
  if (lower) {
    return sql(statements.insert_lower,
               {row[1], row[2], row[3], row[4], value(from_value), row[from_method]});
  }
  return std::nullopt;
}

// Laxer than what is stored: a row is kept while it has any value and any method.
bool is_emptied(const line_cells& row) {
  return (row[from_value].empty() && row[to_value].empty()) ||
         (row[from_method].empty() && row[to_method].empty());
}

}  // namespace

condition_lines range_lines(const std::string& use_type, const range_statements& statements) {
  return {.use_type = use_type,
          .format =
              "#Rec|replace_no|replace_cond_no|sno|use_type|<比較値(FROM)|<比較方法|"
              "<比較値(TO)|<比較方法",
          .widths = {1500, 1500, 1500, 1500},
          .lists = {"", "#1;から|#2;から（含まない）", "", "#1;まで|#2;まで（含まない）"},
          .select = statements.select,
          .is_emptied = is_emptied,
          .insert = [statements](const line_cells& row) { return insert(statements, row); },
          .test = {},
          .adjust = {},
          .validate = {}};
}

}  // namespace ta_vorlumine
