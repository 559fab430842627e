#pragma once

#include <string>
#include <vector>

#include "controls/grid/grid_cells.h"
#include "controls/grid/grid_cursor.h"
#include "controls/grid/grid_edit.h"

class QString;
class QTableView;

namespace ta_vorlumine {

/// The rows and cells of a text as spreadsheets put it on the clipboard: a line for each row, tabs
/// between its cells, double quotes around a cell that holds a line break or a tab. Each cell comes
/// on one line. Empty for an empty text.
[[nodiscard]] std::vector<std::vector<std::string>> copied_cells(const QString& text);

/// Fills a grid with what the clipboard holds, from the current cell to the right and down, cell by
/// cell as if each were typed. Stops where a cell is refused, which then is in edit. A cell that
/// was copied empty leaves the grid's as it is.
class grid_paste {
 public:
  grid_paste(QTableView& view, const grid_cells& cells, const grid_model& model, grid_edit& edit,
             grid_cursor& cursor)
      : view_(view), cells_(cells), model_(model), edit_(edit), cursor_(cursor) {}

  [[nodiscard]] static bool has_several_cells();
  void run();

 private:
  [[nodiscard]] std::vector<int> shown_columns(int column, std::size_t count) const;
  [[nodiscard]] bool fill_row(const std::vector<std::string>& texts, int column);
  void choose_what_is_left(int column, std::size_t count);
  [[nodiscard]] bool go_down(int column);

  QTableView& view_;
  const grid_cells& cells_;
  const grid_model& model_;
  grid_edit& edit_;
  grid_cursor& cursor_;
  std::vector<std::string> choices_;  // of the first row pasted, by column
};

}  // namespace ta_vorlumine
