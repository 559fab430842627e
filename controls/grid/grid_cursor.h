#pragma once

#include <functional>

class QModelIndex;
class QTableView;

namespace ta_vorlumine {

/// The current cell of a grid, and the way from cell to cell.
class grid_cursor {
 public:
  /// `row_check` may add and remove rows of what `view` shows.
  grid_cursor(QTableView& view, std::function<void()> row_check);

  /// The current row, the first data row being 1; -1 without one.
  [[nodiscard]] int row() const;
  void set_row(int row);

  /// The first cell becomes current if none is.
  void find_cell();
  void check_row();
  /// Goes to the next cell and checks the row; false if there is none.
  bool move_on(bool forward);

 private:
  [[nodiscard]] QModelIndex neighbour(int row, int column, bool forward) const;

  QTableView& view_;
  std::function<void()> row_check_;
};

}  // namespace ta_vorlumine
