#include "controls/grid/grid_paste.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTableView>
#include <utility>

#include "platform/one_line_text.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {
namespace {

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
    static const QRegularExpression separator("[\t\r\n]");
    const qsizetype end = text_.indexOf(separator, start);
    return end < 0 ? text_.size() : end;
  }

  // Only a cell that holds a separator is put in quotes; any other one means the quotes that it
  // has.
  QString quoted_cell() {
    static const QRegularExpression quoted("\\G\"((?:[^\"]|\"\")*)\"(?=[\t\r\n]|\\z)");
    const auto found = quoted.match(text_, at_);
    if (!found.hasMatch() || end_from(at_) >= found.capturedEnd()) return {};
    taken_ = found.capturedLength();
    return found.captured(1).replace("\"\"", "\"");
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
  const int column = view_.currentIndex().column();
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
    view_.setCurrentIndex(first.sibling(first.row(), columns[i]));
    if (!texts[i].empty() && !edit_.paste({first.row() + 1, columns[i]}, texts[i])) return false;
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
  const QModelIndex below = view_.model()->index(current.row() + 1, column);
  if (below.isValid()) view_.setCurrentIndex(below);
  cursor_.check_row();
  return below.isValid();
}

}  // namespace ta_vorlumine
