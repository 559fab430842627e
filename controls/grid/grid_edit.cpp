#include "controls/grid/grid_edit.h"

#include <QLineEdit>
#include <QTableView>
#include <algorithm>
#include <utility>

#include "platform/composition.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {

using platform::to_toolkit;

grid_edit::grid_edit(QTableView& view, grid_cells& cells, grid_model& model, events handlers)
    : view_(view),
      cells_(cells),
      model_(model),
      events_(std::move(handlers)),
      editor_(*view.viewport()),
      list_(view) {
  list_.on_pick = [this](const std::string& number) { choose(listed_, number); };
}

void grid_edit::open(cell_place cell) {
  if (!enabled) return;
  if (cells_.drops_down(cell.column)) return open_list(cell);
  begin(cell, cells_.text(cell.row, cell.column));
  editor_.line().setFocus();
}

void grid_edit::open_list(cell_place cell) {
  listed_ = cell;
  view_.scrollTo(model_.index_of(cell));
  const QRect place = view_.visualRect(model_.index_of(cell));
  list_.open(cells_.column(cell.column).choices, cells_.text(cell.row, cell.column),
             cells_.spoken_heading(cell.column),
             QRect(view_.viewport()->mapToGlobal(place.topLeft()), place.size()));
}

void grid_edit::begin(cell_place cell, std::string_view text) {
  cell_ = cell;
  view_.scrollTo(model_.index_of(cell));
  editor_.start(text, limit);
  editor_.line().setAccessibleName(to_toolkit(cells_.spoken_heading(cell.column)));
  place_editor();
  editor_.line().show();
}

void grid_edit::begin_empty(cell_place cell) {
  begin(cell, {});
}

void grid_edit::place_editor() {
  constexpr int ring = 2;
  if (!is_open()) return;
  const QRect place = view_.visualRect(model_.index_of(cell_));
  editor_.line().setGeometry(place.adjusted(ring, ring, -ring, -ring));
}

void grid_edit::replace(cell_place cell, std::string_view text) {
  if (cells_.drops_down(cell.column)) {
    const choice* entry = cells_.typed_choice(cell, text);
    if (entry) choose(cell, entry->number);
    return;
  }
  begin(cell, {});
  editor_.line().setFocus();
  editor_.line().insert(to_toolkit(text));
}

bool grid_edit::paste(cell_place cell, std::string_view text) {
  if (cells_.drops_down(cell.column)) {
    replace(cell, text);
    return !is_open();
  }
  begin(cell, text);
  editor_.line().setFocus();
  return take();
}

void grid_edit::clear(cell_place cell) {
  if (cells_.drops_down(cell.column)) return choose(cell, {});
  replace(cell, {});
  take();
}

void grid_edit::choose(cell_place cell, const std::string& number) {
  cell_ = cell;
  chosen_ = number;
  if (take()) return;
  cell_ = {};
  open_list(cell);
}

bool grid_edit::take() {
  if (asking_) return false;
  if (!is_open()) return true;
  if (typed()) platform::finish_composition();
  asking_ = true;
  const bool refused = events_.refuses(cell_);
  asking_ = false;
  if (!is_open()) return true;  // the row has gone meanwhile
  if (refused) {
    if (typed()) editor_.line().setFocus();
    return false;
  }
  const std::string text = typed() ? editor_.text() : chosen_;
  const cell_place cell = cell_;
  drop();
  model_.put(cell.row, cell.column, text);
  events_.taken();
  return true;
}

void grid_edit::drop() {
  cell_ = {};
  if (editor_.line().hasFocus()) view_.setFocus();
  editor_.line().hide();
}

void grid_edit::row_removed(int row) {
  if (row == cell_.row) drop();
  if (row < cell_.row) --cell_.row;
}

std::string grid_edit::text() const {
  if (!is_open()) return {};
  if (typed()) return editor_.text();
  const auto& choices = cells_.column(cell_.column).choices;
  const auto entry = std::ranges::find(choices, chosen_, &choice::number);
  return entry == choices.end() ? std::string() : entry->word;
}

void grid_edit::set_text(std::string_view text) {
  if (!is_open()) return;
  if (typed()) return editor_.set_text(text);
  const auto& choices = cells_.column(cell_.column).choices;
  const auto entry = std::ranges::find(choices, text, &choice::word);
  chosen_ = entry == choices.end() ? std::string() : entry->number;
}

}  // namespace ta_vorlumine
