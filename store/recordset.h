#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/result_cells.h"
#include "store/value.h"

namespace ADODB {

class Connection;
struct statement;

using column_names = std::shared_ptr<const std::vector<std::string>>;

/// All rows of one statement, as an engine hands them over.
struct result {
  column_names columns;
  result_cells cells;
};

class Field {
 public:
  Field(const result_cells& cells, std::size_t position) : cells_(&cells), position_(position) {}
  [[nodiscard]] ADODB::Value Value() const { return cells_->at(position_); }

 private:
  const result_cells* cells_;
  std::size_t position_;
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
  void Open(const statement& statement, Connection& connection);
  void Close();

  /// True on an empty result, after the last row, and on a closed record set.
  [[nodiscard]] bool eof() const;
  void MoveNext();
  [[nodiscard]] std::size_t RecordCount() const;
  /// The place of the current record, the first being 0.
  [[nodiscard]] std::size_t Record() const { return row_; }
  [[nodiscard]] ADODB::Fields Fields() const;
  /// Of any record, the first being 0, without moving there.
  [[nodiscard]] ADODB::Fields Fields(std::size_t record) const;

 private:
  std::shared_ptr<const result> rows_;
  std::size_t row_ = 0;
};

}  // namespace ADODB
