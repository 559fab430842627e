#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ta_vorlumine {

/// An entry of a drop-down list: the cell holds the number and shows the word.
struct choice {
  std::string number;
  std::string word;
};

/// A cell; row 0 holds the headings.
struct cell_place {
  int row = 0;
  int column = 0;
};

struct grid_column {
  bool left_aligned = false;
  bool hidden = false;
  int width = 1440;             ///< twips
  std::vector<choice> choices;  ///< empty for a column of free text
};

/// What a grid holds: rows of texts (UTF-8), row 0 being the headings. Knows nothing of windows.
/// Naming a row or a column that doesn't exist raises std::runtime_error.
class grid_cells {
 public:
  [[nodiscard]] int rows() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int columns() const { return static_cast<int>(columns_.size()); }
  [[nodiscard]] const grid_column& column(int column) const;
  [[nodiscard]] grid_column& column(int column);
  [[nodiscard]] const std::string& text(int row, int column) const;
  [[nodiscard]] std::string& text(int row, int column);

  [[nodiscard]] bool drops_down(int column) const { return !this->column(column).choices.empty(); }

  /// The text, or the word that its number stands for.
  [[nodiscard]] const std::string& shown_text(int row, int column) const;

  /// The heading, told apart from another one of the same words by the one before it.
  [[nodiscard]] std::string spoken_heading(int column) const;

  /// Columns that come have empty cells; columns that go take their cells along.
  void set_columns(int count);
  /// Headings separated by vertical bars, "<" in front of those of left-aligned columns; sets the
  /// number of columns.
  void set_format(std::string_view format);
  /// Entries separated by vertical bars, each "#", a number, ";" and a word.
  void set_choices(int column, std::string_view list);

  /// Cells beyond the last column are left out, missing ones are empty.
  void add_row(std::vector<std::string> cells);
  void remove_row(int row);  ///< one that is there, and not the headings

  /// The cells of a data row, the first being 0.
  using row_reader = std::function<std::vector<std::string>(int)>;
  /// Replaces the data rows by `count` others. Each is read when it is first asked for: of
  /// thousands of rows a user sees a few.
  void set_rows(int count, row_reader read);

  /// What a typed text picks in a drop-down cell: the entry of that number or word, else the next
  /// one whose word begins so, the one in the cell coming last. Nothing if none fits.
  [[nodiscard]] const choice* typed_choice(cell_place cell, std::string_view typed) const;

 private:
  struct grid_row {
    std::vector<std::string> cells;
    int unread = -1;  // what to read it by; -1 once it has its cells
  };

  [[nodiscard]] std::vector<std::string>& cells_of(int row) const;

  std::vector<grid_column> columns_;
  mutable std::vector<grid_row> rows_{1};
  row_reader read_;
};

/// The parts of a text between the separators; one at least.
[[nodiscard]] std::vector<std::string> split(std::string_view text, char separator);

}  // namespace ta_vorlumine
