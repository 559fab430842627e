#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "rules/row_key.h"
#include "store/connection.h"

namespace ta_vorlumine {

/// All rows that hang below one row of a tree. They are read level by level, so that a level costs
/// a server one round trip, and kept as they were then.
class subtree {
 public:
  /// `children_of` is the select of the rows below a row, `key` the name of the column of their
  /// keys.
  subtree(ADODB::Connection& conn, row_key top, std::string key,
          const std::function<ADODB::statement(row_key)>& children_of);

  /// Goes through all rows: `first` sees each before the rows below it, `last` its key behind them,
  /// at the end that of the top row, which `first` does not see. Once only.
  void walk(const std::function<void(const ADODB::Fields& row)>& first,
            const std::function<void(row_key row)>& last);

 private:
  [[nodiscard]] row_key key_of(const ADODB::Recordset& row) const;

  row_key top_;
  std::string key_;
  std::unordered_map<row_key, ADODB::Recordset> children_;  ///< by the row that they hang below
};

}  // namespace ta_vorlumine
