#include "controls/grid/grid_cells.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace ta_vorlumine {
namespace {

template <class Items>
auto& item(Items& items, int place, const char* what) {
  if (place < 0 || place >= static_cast<int>(items.size())) {
    throw std::runtime_error(std::string("the grid has no ") + what + " " + std::to_string(place));
  }
  return items[static_cast<std::size_t>(place)];
}

choice read_choice(std::string_view entry) {
  const std::size_t end_of_number = entry.find(';');
  if (!entry.starts_with('#') || end_of_number == std::string_view::npos) {
    throw std::runtime_error("no entry of a drop-down list: " + std::string(entry));
  }
  return {std::string(entry.substr(1, end_of_number - 1)),
          std::string(entry.substr(end_of_number + 1))};
}

}  // namespace

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator)) {
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  parts.emplace_back(text);
  return parts;
}

const grid_column& grid_cells::column(int column) const {
  return item(columns_, column, "column");
}

grid_column& grid_cells::column(int column) {
  return item(columns_, column, "column");
}

const std::string& grid_cells::text(int row, int column) const {
  return item(cells_of(row), column, "column");
}

std::string& grid_cells::text(int row, int column) {
  return item(cells_of(row), column, "column");
}

std::vector<std::string>& grid_cells::cells_of(int row) const {
  grid_row& found = item(rows_, row, "row");
  if (found.unread != -1) {
    found.cells = read_(found.unread);
    found.cells.resize(columns_.size());
    found.unread = -1;
  }
  return found.cells;
}

const std::string& grid_cells::shown_text(int row, int column) const {
  const std::string& held = text(row, column);
  const std::vector<choice>& choices = this->column(column).choices;
  const auto found = std::ranges::find(choices, held, &choice::number);
  return found == choices.end() ? held : found->word;
}

std::string grid_cells::spoken_heading(int column) const {
  const std::string& heading = text(0, column);
  const bool shared = !heading.empty() && std::ranges::count(cells_of(0), heading) > 1;
  return shared && column > 0 ? text(0, column - 1) + "の" + heading : heading;
}

void grid_cells::set_columns(int count) {
  const auto size = static_cast<std::size_t>(count);
  columns_.resize(size);
  for (grid_row& row : rows_) {
    if (row.unread == -1) row.cells.resize(size);
  }
}

void grid_cells::set_format(std::string_view format) {
  std::vector<std::string> headings = split(format, '|');
  set_columns(static_cast<int>(headings.size()));
  for (std::size_t i = 0; i < headings.size(); ++i) {
    columns_[i].left_aligned = headings[i].starts_with('<');
    if (columns_[i].left_aligned) headings[i].erase(0, 1);
  }
  rows_.front().cells = std::move(headings);
}

void grid_cells::set_choices(int column, std::string_view list) {
  std::vector<choice> choices;
  if (!list.empty()) {
    for (const std::string& entry : split(list, '|')) choices.push_back(read_choice(entry));
  }
  this->column(column).choices = std::move(choices);
}

void grid_cells::add_row(std::vector<std::string> cells) {
  cells.resize(columns_.size());
  rows_.push_back({std::move(cells)});
}

void grid_cells::set_rows(int count, row_reader read) {
  read_ = std::move(read);
  rows_.resize(1);
  rows_.reserve(1 + static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row) rows_.push_back({{}, row});
}

void grid_cells::remove_row(int row) {
  rows_.erase(rows_.begin() + row);
}

const choice* grid_cells::typed_choice(cell_place cell, std::string_view typed) const {
  const std::vector<choice>& choices = column(cell.column).choices;
  const auto number = std::ranges::find(choices, typed, &choice::number);
  if (number != choices.end()) return &*number;
  const auto word = std::ranges::find(choices, typed, &choice::word);
  if (word != choices.end()) return &*word;
  const auto held = std::ranges::find(choices, text(cell.row, cell.column), &choice::number);
  const auto fits = [&](const choice& entry) { return entry.word.starts_with(typed); };
  auto found = choices.end();
  if (held != choices.end()) found = std::find_if(held + 1, choices.end(), fits);
  if (found == choices.end()) found = std::ranges::find_if(choices, fits);
  return found == choices.end() ? nullptr : &*found;
}

}  // namespace ta_vorlumine
