#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

namespace ADODB {

class Connection;

using column_names = std::shared_ptr<const std::vector<std::string>>;

/// All rows of one statement, cell after cell, as an engine hands them over.
struct result {
  column_names columns;
  std::vector<Value> cells;
};

class Field {
 public:
  explicit Field(const ADODB::Value& value) : value_(&value) {}
  [[nodiscard]] const ADODB::Value& Value() const { return *value_; }

 private:
  const ADODB::Value* value_;
};

/// The columns of a record set's current row. Valid until the record set moves, closes or goes
/// away.
class Fields {
 public:
  Fields(const result& rows, std::size_t row) : rows_(&rows), row_(row) {}

  /// By name in any case, or by position from 0. A missing column and a record set without a
  /// current row raise Error.
  [[nodiscard]] Field Item(std::string_view name) const;
  [[nodiscard]] Field Item(std::size_t position) const;
  [[nodiscard]] std::size_t Count() const { return rows_->columns->size(); }

 private:
  const result* rows_;
  std::size_t row_;
};

/// The rows of a statement, all in memory: any number of record sets stay open at once, and a row
/// outlives its deletion from the table. A copy shares the rows and has a position of its own.
class Recordset {
 public:
  Recordset() = default;
  explicit Recordset(result rows);

  /// Runs `statement` on `connection` and stands on the first row; raises what Execute raises.
  void Open(std::string_view statement, Connection& connection);
  void Close();

  /// True on an empty result, after the last row, and on a closed record set.
  [[nodiscard]] bool eof() const;
  void MoveNext();
  [[nodiscard]] std::size_t RecordCount() const;
  [[nodiscard]] ADODB::Fields Fields() const;

 private:
  std::shared_ptr<const result> rows_;
  std::size_t row_ = 0;
};

}  // namespace ADODB
