#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "conditions/condition_transaction.h"
#include "conditions/new_condition.h"
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
  /// May be empty.
  std::function<bool(const line_cells&, int row)> test;
  /// After the lines were loaded: what is shown otherwise than it is stored. May be empty.
  std::function<void(VSFlexGrid&)> adjust;
  /// Before an edit of a cell is taken. May be empty.
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
  /// Why an OK has not stored anything.
  enum class obstacle {
    none,
    no_line,        ///< no row of a new condition is complete
    changed_lines,  ///< another program has changed the lines since they were loaded
    branch_below    ///< without its last line the condition goes, and a branch hangs below it
  };

  void set_widths();
  [[nodiscard]] line_cells cells(int row);
  [[nodiscard]] ADODB::Recordset lines_in_store();
  [[nodiscard]] std::int64_t next_number();
  [[nodiscard]] std::int64_t highest_number_in_grid();
  void add_trailing_row(const std::string& cond_no, std::int64_t sno);
  void row_check();
  void delete_line();
  void delete_stored_line(const line_cells& line);

  void ok();
  [[nodiscard]] obstacle try_to_store();
  [[nodiscard]] bool settle(obstacle found);
  [[nodiscard]] obstacle store();
  [[nodiscard]] bool rows_pass();
  [[nodiscard]] bool store_lines();
  [[nodiscard]] bool remove_condition();
  void drop_rows();

  condition_lines kind_;
  condition_transaction transaction_;
  new_condition new_row_;
  ADODB::Recordset known_lines_;    // as loaded, or as the user agreed to write over them
  bool may_delete_branch_ = false;  // the user agreed to it
};

}  // namespace ta_vorlumine
