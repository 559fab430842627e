#pragma once

#include "controls/grid/grid_cells.h"
#include "controls/grid/grid_edit.h"
#include "controls/grid/grid_model.h"

class QWidget;

namespace ta_vorlumine {

/// The window side of a grid: what the user does with keys, pointer and input method. Lives as
/// long as its widget, which belongs to the window that it is put in.
class grid_view {
 public:
  /// `cells` must outlive the widget. `events.taken` hears of all that asks for a row check.
  static grid_view& make(grid_cells& cells, const grid_edit::events& events);

  [[nodiscard]] virtual QWidget& widget() = 0;
  [[nodiscard]] virtual grid_model& model() = 0;
  [[nodiscard]] virtual grid_edit& edit() = 0;

  /// The current row, -1 without one.
  [[nodiscard]] virtual int row() const = 0;
  virtual void set_row(int row) = 0;
  /// Gives the columns their widths; the last shown one takes what room is left.
  virtual void lay_out_columns() = 0;

 protected:
  ~grid_view() = default;
};

}  // namespace ta_vorlumine
