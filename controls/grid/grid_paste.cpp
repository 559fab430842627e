#include "controls/grid/grid_paste.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTableView>
#include <utility>

#include "platform/one_line_text.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {
namespace {

bool is_separator(QChar letter) {
  return letter == '\t' || letter == '\r' || letter == '\n';
}

/// Takes cells from a text, one after the other.
class cell_reader {
 public:
  explicit cell_reader(QString text) : text_(std::move(text)) {
    if (text_.endsWith('\n')) text_.chop(1);
    if (text_.endsWith('\r')) text_.chop(1);
  }

  [[nodiscard]] bool at_end() const { return at_ >= text_.size(); }
  /// Whether the cell read last was the last one of its row.
  [[nodiscard]] bool at_row_end() const { return row_end_; }

  QString next() {
    QString cell = quoted_cell();
    if (cell.isNull()) cell = text_.mid(at_, end_from(at_) - at_);
    at_ = end_from(at_ + taken_);
    taken_ = 0;
    row_end_ = at_end() || text_.at(at_) != '\t';
    at_ += text_.mid(at_, 2) == "\r\n" ? 2 : 1;
    return cell;
  }

 private:
  [[nodiscard]] qsizetype end_from(qsizetype start) const {
    while (start < text_.size() && !is_separator(text_.at(start))) ++start;
    return start;
  }

  /// The quote that ends the text which begins here; within it every quote is doubled.
  [[nodiscard]] qsizetype end_of_quoted(qsizetype start) const {
    qsizetype end = text_.indexOf('"', start);
    while (end >= 0 && text_.mid(end + 1, 1) == "\"") end = text_.indexOf('"', end + 2);
    return end < 0 ? text_.size() : end;
  }

  // Only a cell that holds a separator is put in quotes; any other one means the quotes that it
  // has.
  QString quoted_cell() {
    if (text_.at(at_) != '"') return {};
    const qsizetype end = end_of_quoted(at_ + 1);
    if (end == text_.size() || end_from(at_) > end || end_from(end) > end + 1) return {};
    taken_ = end + 1 - at_;
    return text_.mid(at_ + 1, taken_ - 2).replace("\"\"", "\"");
  }

  QString text_;
  qsizetype at_ = 0;
  qsizetype taken_ = 0;  // of the text, by a cell in quotes
  bool row_end_ = true;
};

}  // namespace

std::vector<std::vector<std::string>> copied_cells(const QString& text) {
  std::vector<std::vector<std::string>> rows;
  cell_reader reader(text);
  while (!reader.at_end()) {
    if (reader.at_row_end()) rows.emplace_back();
    rows.back().push_back(platform::from_toolkit(platform::on_one_line(reader.next())));
  }
  return rows;
}

bool grid_paste::has_several_cells() {
  const auto rows = copied_cells(QGuiApplication::clipboard()->text());
  return rows.size() > 1 || (rows.size() == 1 && rows.front().size() > 1);
}

void grid_paste::run() {
  const auto rows = copied_cells(QGuiApplication::clipboard()->text());
  const int column = model_.place_of(view_.currentIndex()).column;
  choices_.clear();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i > 0 && !go_down(column)) return;
    if (!fill_row(rows[i], column)) return;
    if (rows.size() > 1) choose_what_is_left(column, rows[i].size());
  }
}

/// The next columns that the user sees, `count` at most, from this one on.
std::vector<int> grid_paste::shown_columns(int column, std::size_t count) const {
  std::vector<int> shown;
  for (; column < cells_.columns() && shown.size() < count; ++column)
    if (!cells_.column(column).hidden) shown.push_back(column);
  return shown;
}

bool grid_paste::fill_row(const std::vector<std::string>& texts, int column) {
  const QPersistentModelIndex first = view_.currentIndex();
  const std::vector<int> columns = shown_columns(column, texts.size());
  for (std::size_t i = 0; i < columns.size() && first.isValid(); ++i) {
    const cell_place cell{first.row() + 1, columns[i]};
    view_.setCurrentIndex(model_.index_of(cell));
    if (!texts[i].empty() && !edit_.paste(cell, texts[i])) return false;
  }
  return first.isValid();
}

// Of several rows, those that hold a value alone would be swept out as incomplete: the list behind
// each value gets what it has in the first of them, else its first entry.
void grid_paste::choose_what_is_left(int column, std::size_t count) {
  const QPersistentModelIndex first = view_.currentIndex();
  choices_.resize(static_cast<std::size_t>(cells_.columns()));
  for (const int list : shown_columns(column, count + 1)) {
    if (!cells_.drops_down(list) || !first.isValid()) continue;
    const int row = first.row() + 1;
    std::string& chosen = choices_[static_cast<std::size_t>(list)];
    if (chosen.empty()) chosen = cells_.text(row, list);
    if (chosen.empty()) chosen = cells_.column(list).choices.front().number;
    if (cells_.text(row, list).empty() && !edit_.paste({row, list}, chosen)) return;
  }
}

bool grid_paste::go_down(int column) {
  const QModelIndex current = view_.currentIndex();
  if (!current.isValid()) return false;
  const QModelIndex below = model_.index_of({current.row() + 2, column});
  if (below.isValid()) view_.setCurrentIndex(below);
  cursor_.check_row();
  return below.isValid();
}

}  // namespace ta_vorlumine
