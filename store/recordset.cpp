#include "store/recordset.h"

#include <algorithm>
#include <utility>

#include "store/connection.h"
#include "store/error.h"
#include "store/text.h"

namespace ADODB {

Field Fields::Item(std::string_view name) const {
  const auto& columns = *rows_->columns;
  // The names mostly agree in case too, and comparing them as they are is faster.
  auto found = std::ranges::find(columns, name);
  if (found == columns.end()) {
    found = std::ranges::find_if(
        columns, [&](const std::string& column) { return equal_in_any_case(column, name); });
  }
  if (found == columns.end())
    throw Error(failure_kind::other, "the record set has no column " + std::string(name));
  return Item(static_cast<std::size_t>(found - columns.begin()));
}

Field Fields::Item(std::size_t position) const {
  if (position >= Count())
    throw Error(failure_kind::other, "the record set has no column " + std::to_string(position));
  const std::size_t cell = row_ * Count() + position;
  if (cell >= rows_->cells.size())
    throw Error(failure_kind::other, "the record set has no current row");
  return {rows_->cells, cell};
}

Recordset::Recordset(result rows) : rows_(std::make_shared<const result>(std::move(rows))) {}

void Recordset::Open(const statement& statement, Connection& connection) {
  *this = connection.Execute(statement);
}

void Recordset::Close() {
  *this = Recordset();
}

bool Recordset::eof() const {
  return row_ >= RecordCount();
}

void Recordset::MoveNext() {
  if (eof()) throw Error(failure_kind::other, "the record set is at its end");
  ++row_;
}

std::size_t Recordset::RecordCount() const {
  if (!rows_ || rows_->columns->empty()) return 0;
  return rows_->cells.size() / rows_->columns->size();
}

ADODB::Fields Recordset::Fields() const {
  return Fields(row_);
}

ADODB::Fields Recordset::Fields(std::size_t record) const {
  if (!rows_) throw Error(failure_kind::other, "the record set is closed");
  return {*rows_, record};
}

}  // namespace ADODB
