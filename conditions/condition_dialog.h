#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "conditions/condition_transaction.h"
#include "controls/grid/flex_grid.h"
#include "platform/command_button.h"
#include "platform/form.h"
#include "platform/label.h"
#include "store/sql.h"

namespace ta_vorlumine {

/// The cells of one row of the grid, by column.
using line_cells = std::vector<std::string>;

/// What tells one kind of condition dialog from another.
struct condition_lines {
  std::string use_type;            ///< the letter of the lines
  std::string format;              ///< headings of the grid
  std::vector<int> widths;         ///< of the columns from 5 on, in twips
  std::vector<std::string> lists;  ///< drop-downs of the columns from 5 on, empty for typed text
  ADODB::words select;             ///< reads the lines, with places for definition and condition

  /// The row check takes such a row for one that the user has emptied.
  std::function<bool(const line_cells&)> is_emptied;
  /// The statement that stores the row; nothing for a row that isn't complete.
  std::function<std::optional<ADODB::statement>(const line_cells&)> insert;
  /// Whether OK may go on with the row; it has told the user why not, where there is a word for it.
  std::function<bool(const line_cells&, int row)> test;
  /// Before an edit of a cell is taken.
  std::function<void(VSFlexGrid&, int col, bool& cancel)> validate;
};

/// The dialog that edits the lines of one condition in a grid. It is one transaction: what it
/// deletes at once comes back unless OK has gone through.
class condition_dialog {
 public:
  condition_dialog(std::string name, condition_lines kind);

  platform::Form window;
  platform::Label Label1;
  VSFlexGrid fg;
  platform::CommandButton Command3;
  platform::CommandButton Command1;
  platform::CommandButton Command2;

  /// Fills the grid from the store, and sets shared().cond_mode.
  void load_lines();

 private:
  void set_widths();
  [[nodiscard]] line_cells cells(int row);
  [[nodiscard]] std::int16_t next_number();
  void add_trailing_row(const std::string& cond_no, std::int64_t sno);
  void row_check();
  void delete_line();

  void ok();
  [[nodiscard]] bool store();
  [[nodiscard]] bool rows_pass();
  [[nodiscard]] bool store_lines();
  void drop_rows();

  condition_lines kind_;
  condition_transaction transaction_;
};

}  // namespace ta_vorlumine
