#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/grid/grid_cells.h"
#include "platform/control.h"
#include "store/recordset.h"

namespace ta_vorlumine {

class grid_view;

/// The grid control: rows of texts (UTF-8) below the headings, which are row 0. Naming a row or a
/// column that doesn't exist raises std::runtime_error. What changes the columns or all rows at
/// once (DataSource, FormatString, Cols, ColComboList) drops an open edit and leaves no cell
/// current.
class VSFlexGrid : public platform::Control {
 public:
  VSFlexGrid(platform::Form& form, std::string name, std::string accessible_name);
  ~VSFlexGrid() override;

  /// Replaces the data rows by all records, in their order: the first field goes to column 1, null
  /// as the empty text. Makes the columns that this needs.
  void DataSource(const ADODB::Recordset& records);
  /// Headings separated by vertical bars, "<" in front of those of left-aligned columns; sets the
  /// number of columns.
  void FormatString(std::string_view format);
  void Cols(int count);
  [[nodiscard]] int Rows();  ///< the headings' row included
  [[nodiscard]] int Row();   ///< the current row, -1 without one
  void Row(int row);         ///< keeps to the current column; -1 leaves no row current
  [[nodiscard]] std::string TextMatrix(int row, int col);
  void TextMatrix(int row, int col, std::string_view text);
  /// Appends a row; its cells are separated by tabs.
  void AddItem(std::string_view cells);
  /// An open edit of the row is dropped. The row behind, else the one before, becomes current.
  void RemoveItem(int row);

  void Editable(int mode);  ///< 2: cells are edited with keyboard and mouse
  /// Of what is typed, in characters (code points); 0 for none. Pasted cells come whole: what is
  /// too long is for on_validate_edit to refuse, with a word to the user.
  void EditMaxLength(int length);
  /// The text in the open editor, of a drop-down cell the word chosen. Empty without an edit.
  [[nodiscard]] std::string EditText();
  void EditText(std::string_view text);

  void ColHidden(int col, bool hidden);
  /// At least, for a font of 9 points: a larger one or a longer heading takes more, and room that
  /// the columns leave is shared out. Widths that the user has dragged stay.
  void ColWidth(int col, int twips);
  /// Entries separated by vertical bars, each "#", a number, ";" and a word: the cell holds the
  /// number and shows the word. The empty text makes it a column of free text again.
  void ColComboList(int col, std::string_view list);

  /// Takes an open edit, half-composed text included. False if its validation was cancelled, and
  /// the cell stays in edit. A click outside the editor does the same by itself, and counts for
  /// nothing else if the edit goes on or a message came up meanwhile.
  [[nodiscard]] bool commit_edit();

  /// Before an edit is accepted, also one that clears the cell. A handler that fails cancels.
  std::function<void(int row, int col, bool& cancel)> on_validate_edit;
  /// Something the user did: an edit has ended with its text in the cell, another cell became
  /// current, the grid was clicked (Row() is -1 if it has no rows), or the keyboard came to a grid
  /// without rows. What the program does is not notified. Never raised inside the toolkit's own
  /// handling, so that the handler may add and remove rows.
  std::function<void()> on_row_check;

 private:
  std::unique_ptr<platform::toolkit_peer> make() override;
  grid_view& view();
  grid_cells& cells();
  void rebuild(const std::function<void()>& change);
  void data_row_or_fail(int row);
  [[nodiscard]] bool refuses(cell_place cell);
  void check_row();

  std::string accessible_name_;
  grid_cells cells_;
  grid_view* view_ = nullptr;  // made anew at each load
};

}  // namespace ta_vorlumine
