#include "controls/grid/grid_cursor.h"

#include <QTableView>
#include <algorithm>
#include <utility>

namespace ta_vorlumine {

grid_cursor::grid_cursor(QTableView& view, std::function<void()> row_check)
    : view_(view), row_check_(std::move(row_check)) {}

int grid_cursor::row() const {
  return view_.currentIndex().isValid() ? view_.currentIndex().row() + 1 : -1;
}

// No cell is current for -1.
void grid_cursor::set_row(int row) {
  const int column = std::max(0, view_.currentIndex().column());
  view_.setCurrentIndex(view_.model()->index(row - 1, column));
}

// Whoever works without a mouse finds a current cell as soon as there are rows.
void grid_cursor::find_cell() {
  if (!view_.currentIndex().isValid()) view_.setCurrentIndex(view_.model()->index(0, 0));
}

void grid_cursor::check_row() {
  row_check_();
  find_cell();
}

bool grid_cursor::move_on(bool forward) {
  const QModelIndex current = view_.currentIndex();
  const QModelIndex next = neighbour(current.row(), current.column(), forward);
  if (!next.isValid()) return false;
  view_.setCurrentIndex(next);
  check_row();
  return true;
}

QModelIndex grid_cursor::neighbour(int row, int column, bool forward) const {
  const QAbstractItemModel& shown = *view_.model();
  const int columns = shown.columnCount();
  column += forward ? 1 : -1;
  if (column < 0 || column >= columns) {
    row += forward ? 1 : -1;
    column = forward ? 0 : columns - 1;
  }
  return shown.index(row, column);
}

}  // namespace ta_vorlumine
