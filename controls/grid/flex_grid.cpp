#include "controls/grid/flex_grid.h"

#include <QWidget>
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "controls/grid/grid_view.h"
#include "platform/form.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {
namespace {

/// The cells of a row: column 0 is none of the record's.
std::vector<std::string> texts_of(const ADODB::Fields& record) {
  std::vector<std::string> cells(1 + record.Count());
  for (std::size_t i = 0; i < record.Count(); ++i) cells[1 + i] = record.Item(i).Value().text();
  return cells;
}

}  // namespace

VSFlexGrid::VSFlexGrid(platform::Form& form, std::string name, std::string accessible_name)
    : Control(form, std::move(name)), accessible_name_(std::move(accessible_name)) {}

VSFlexGrid::~VSFlexGrid() = default;

std::unique_ptr<platform::toolkit_peer> VSFlexGrid::make() {
  cells_ = grid_cells();
  view_ = &grid_view::make(
      cells_, {[this](cell_place cell) { return refuses(cell); }, [this] { check_row(); }});
  view_->widget().setAccessibleName(platform::to_toolkit(accessible_name_));
  return std::make_unique<platform::toolkit_peer>(&view_->widget());
}

grid_view& VSFlexGrid::view() {
  static_cast<void>(peer());  // loads the form, and so makes the view, if need be
  return *view_;
}

grid_cells& VSFlexGrid::cells() {
  view();
  return cells_;
}

// A handler that fails leaves the edit open, so that nothing is lost.
bool VSFlexGrid::refuses(cell_place cell) {
  if (!on_validate_edit) return false;
  bool refused = true;
  form().guarded([&] {
    bool cancel = false;
    on_validate_edit(cell.row, cell.column, cancel);
    refused = cancel;
  });
  return refused;
}

void VSFlexGrid::check_row() {
  if (on_row_check) form().guarded(on_row_check);
}

void VSFlexGrid::rebuild(const std::function<void()>& change) {
  view().edit().drop();
  view().model().rebuild(change);
  view().lay_out_columns();
}

void VSFlexGrid::data_row_or_fail(int row) {
  if (row >= 1 && row < Rows()) return;
  throw std::runtime_error("the grid has no data row " + std::to_string(row));
}

void VSFlexGrid::DataSource(const ADODB::Recordset& records) {
  const int count = static_cast<int>(records.RecordCount());
  rebuild([&] {
    if (count > 0) {
      const int columns = static_cast<int>(records.Fields().Count()) + 1;
      if (cells_.columns() < columns) cells_.set_columns(columns);
    }
    cells_.set_rows(count, [records](int row) {
      return texts_of(records.Fields(static_cast<std::size_t>(row)));
    });
  });
}

void VSFlexGrid::FormatString(std::string_view format) {
  rebuild([&] { cells_.set_format(format); });
}

void VSFlexGrid::Cols(int count) {
  rebuild([&] { cells_.set_columns(count); });
}

int VSFlexGrid::Rows() {
  return cells().rows();
}

int VSFlexGrid::Row() {
  return view().row();
}

void VSFlexGrid::Row(int row) {
  if (row != -1) data_row_or_fail(row);
  view().set_row(row);
}

std::string VSFlexGrid::TextMatrix(int row, int col) {
  return cells().text(row, col);
}

void VSFlexGrid::TextMatrix(int row, int col, std::string_view text) {
  view().model().put(row, col, text);
}

void VSFlexGrid::AddItem(std::string_view cells) {
  view().model().add(cells);
}

void VSFlexGrid::RemoveItem(int row) {
  data_row_or_fail(row);
  const bool was_current = Row() == row;
  view().edit().row_removed(row);
  view().model().remove(row);
  if (was_current && Rows() > 1) Row(std::min(row, Rows() - 1));
}

void VSFlexGrid::Editable(int mode) {
  view().edit().enabled = mode == 2;
}

void VSFlexGrid::EditMaxLength(int length) {
  view().edit().limit = length;
}

std::string VSFlexGrid::EditText() {
  return view().edit().text();
}

void VSFlexGrid::EditText(std::string_view text) {
  view().edit().set_text(text);
}

void VSFlexGrid::ColHidden(int col, bool hidden) {
  cells().column(col).hidden = hidden;
  view().lay_out_columns();
}

void VSFlexGrid::ColWidth(int col, int twips) {
  cells().column(col).width = twips;
  view().lay_out_columns();
}

void VSFlexGrid::ColComboList(int col, std::string_view list) {
  cells().set_choices(col, list);
  rebuild([] {});
}

bool VSFlexGrid::commit_edit() {
  return view().edit().take();
}

}  // namespace ta_vorlumine
