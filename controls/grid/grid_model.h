#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "controls/grid/grid_cells.h"

class QAbstractItemModel;
class QModelIndex;

namespace ta_vorlumine {

/// Shows the data rows of `cells` to the toolkit, whose row 0 is the grid's row 1. Every change of
/// the cells that a view is to see goes through here; rows and columns are the grid's.
class grid_model {
 public:
  explicit grid_model(grid_cells& cells);
  ~grid_model();

  /// For what changes the columns, or all rows at once. No cell is current afterwards.
  void rebuild(const std::function<void()>& change);
  void add(std::string_view cells);  ///< separated by tabs
  void remove(int row);              ///< a data row
  void put(int row, int column, std::string_view text);

  /// Without the hidden columns: a screen reader would read them, and their headings.
  [[nodiscard]] QAbstractItemModel& shown() const;
  /// To be told after columns were hidden or shown. If they were, no cell is current afterwards.
  void choose_columns();

  [[nodiscard]] cell_place place_of(const QModelIndex& shown) const;
  [[nodiscard]] QModelIndex index_of(cell_place cell) const;  ///< of a cell that is shown

 private:
  class table;
  std::unique_ptr<table> table_;
};

}  // namespace ta_vorlumine
