#include "controls/grid/grid_model.h"

#include <QAbstractTableModel>
#include <algorithm>
#include <vector>

#include "controls/grid/cell_painter.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {

using platform::to_toolkit;

class grid_model::table : public QAbstractTableModel {
 public:
  explicit table(grid_cells& cells) : cells_(cells) {}

  void rebuild(const std::function<void()>& change) {
    beginResetModel();
    change();
    columns_ = columns_to_show();
    endResetModel();
  }

  void choose_columns() {
    if (columns_ != columns_to_show()) rebuild([] {});
  }

  [[nodiscard]] cell_place place_of(const QModelIndex& shown) const {
    return {shown.row() + 1, columns_[static_cast<std::size_t>(shown.column())]};
  }

  [[nodiscard]] QModelIndex index_of(cell_place cell) const {
    const auto column = std::ranges::lower_bound(columns_, cell.column);
    return index(cell.row - 1, static_cast<int>(column - columns_.begin()));
  }

  void add(std::string_view cells) {
    const int row = rowCount({});
    beginInsertRows({}, row, row);
    cells_.add_row(split(cells, '\t'));
    endInsertRows();
  }

  void remove(int row) {
    beginRemoveRows({}, row - 1, row - 1);
    cells_.remove_row(row);
    endRemoveRows();
  }

  void put(int row, int column, std::string_view text) {
    cells_.text(row, column) = text;
    if (row == 0) {
      emit headerDataChanged(Qt::Horizontal, 0, columnCount({}) - 1);
    } else {
      emit dataChanged(index(row - 1, 0), index(row - 1, columnCount({}) - 1));
    }
  }

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : cells_.rows() - 1;
  }

  [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
  }

  [[nodiscard]] QVariant data(const QModelIndex& cell, int role) const override {
    const auto [row, column] = place_of(cell);
    if (role == Qt::DisplayRole) return to_toolkit(cells_.shown_text(row, column));
    return role == drop_down_role ? QVariant(cells_.drops_down(column)) : QVariant();
  }

  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override {
    if (orientation != Qt::Horizontal) return {};
    const int column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return to_toolkit(cells_.shown_text(0, column));
    if (role == Qt::AccessibleTextRole) return to_toolkit(cells_.spoken_heading(column));
    if (role != Qt::TextAlignmentRole || !cells_.column(column).left_aligned) return {};
    return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
  }

  // A cell that isn't typed into has the input method off: a digit picks its entry at once.
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& cell) const override {
    if (!cell.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags all = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return cells_.drops_down(place_of(cell).column) ? all : all | Qt::ItemIsEditable;
  }

 private:
  [[nodiscard]] std::vector<int> columns_to_show() const {
    std::vector<int> shown;
    for (int i = 0; i < cells_.columns(); ++i)
      if (!cells_.column(i).hidden) shown.push_back(i);
    return shown;
  }

  grid_cells& cells_;
  std::vector<int> columns_;  // the grid's, that are shown
};

grid_model::grid_model(grid_cells& cells) : table_(std::make_unique<table>(cells)) {}

grid_model::~grid_model() = default;

void grid_model::rebuild(const std::function<void()>& change) {
  table_->rebuild(change);
}

void grid_model::add(std::string_view cells) {
  table_->add(cells);
}

void grid_model::remove(int row) {
  table_->remove(row);
}

void grid_model::put(int row, int column, std::string_view text) {
  table_->put(row, column, text);
}

QAbstractItemModel& grid_model::shown() const {
  return *table_;
}

void grid_model::choose_columns() {
  table_->choose_columns();
}

cell_place grid_model::place_of(const QModelIndex& shown) const {
  return table_->place_of(shown);
}

QModelIndex grid_model::index_of(cell_place cell) const {
  return table_->index_of(cell);
}

}  // namespace ta_vorlumine
