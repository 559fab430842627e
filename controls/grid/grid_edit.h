#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/grid/cell_editor.h"
#include "controls/grid/cell_list.h"
#include "controls/grid/grid_cells.h"
#include "controls/grid/grid_model.h"

class QTableView;

namespace ta_vorlumine {

/// The edit of a grid's cells, one at a time: typed into the text editor, or chosen from a list.
/// The toolkit's own editing ends an edit inside its handling of keys and focus, where neither a
/// message nor a change of the rows is safe; here both are.
class grid_edit {
 public:
  struct events {
    /// Whether an edit is refused and goes on. May set the edit's text. Raises nothing.
    std::function<bool(cell_place)> refuses;
    /// An edit has ended, its text stands in the cell. Raises nothing.
    std::function<void()> taken;
  };

  /// `view` shows `cells` through `model`.
  grid_edit(QTableView& view, grid_cells& cells, grid_model& model, events handlers);

  bool enabled = false;
  int limit = 0;  ///< the most characters that the text editor takes, 0 for any number

  /// Opens the text editor on the cell's text, or the list.
  void open(cell_place cell);
  /// Opens the text editor without the cell's text; leaves the keyboard where it is.
  void begin_empty(cell_place cell);
  /// Starts an edit with `text` (UTF-8) instead of the cell's; in a list, picks what it fits.
  void replace(cell_place cell, std::string_view text);
  /// Replaces the cell's whole text, or picks what it fits in a list, and takes that. False if it
  /// was refused and is in edit.
  bool paste(cell_place cell, std::string_view text);
  /// Makes a text cell, or a drop-down cell, empty.
  void clear(cell_place cell);

  [[nodiscard]] bool is_open() const { return cell_.row > 0; }
  /// False if the edit was refused and goes on.
  bool take();
  void drop();
  [[nodiscard]] std::string text() const;
  void set_text(std::string_view text);

  void row_removed(int row);
  void place_editor();
  [[nodiscard]] cell_editor& editor() { return editor_; }
  [[nodiscard]] const cell_editor& editor() const { return editor_; }

 private:
  void begin(cell_place cell, std::string_view text);
  void open_list(cell_place cell);
  void choose(cell_place cell, const std::string& number);
  [[nodiscard]] bool typed() const { return !cells_.drops_down(cell_.column); }

  QTableView& view_;
  grid_cells& cells_;
  grid_model& model_;
  events events_;
  cell_editor editor_;
  cell_list list_;
  cell_place listed_;   // the cell whose list was opened last
  cell_place cell_;     // row 0 without an edit
  std::string chosen_;  // the number on its way into a drop-down cell
  bool asking_ = false;
};

}  // namespace ta_vorlumine
