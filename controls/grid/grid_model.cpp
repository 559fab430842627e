#include "controls/grid/grid_model.h"

#include <QAbstractTableModel>

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
    endResetModel();
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
      emit headerDataChanged(Qt::Horizontal, column, column);
    } else {
      emit dataChanged(index(row - 1, column), index(row - 1, column));
    }
  }

  void set_choices(int column, std::string_view list) {
    cells_.set_choices(column, list);
    if (cells_.rows() > 1) emit dataChanged(index(0, column), index(rowCount({}) - 1, column));
  }

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : cells_.rows() - 1;
  }

  [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : cells_.columns();
  }

  [[nodiscard]] QVariant data(const QModelIndex& cell, int role) const override {
    if (role == Qt::DisplayRole) {
      return to_toolkit(cells_.shown_text(cell.row() + 1, cell.column()));
    }
    return role == drop_down_role ? QVariant(cells_.drops_down(cell.column())) : QVariant();
  }

  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return to_toolkit(cells_.shown_text(0, section));
    if (role != Qt::TextAlignmentRole || !cells_.column(section).left_aligned) return {};
    return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
  }

  // A cell that isn't typed into has the input method off: a digit picks its entry at once.
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& cell) const override {
    const Qt::ItemFlags all = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return cell.isValid() && !cells_.drops_down(cell.column()) ? all | Qt::ItemIsEditable : all;
  }

 private:
  grid_cells& cells_;
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

void grid_model::set_choices(int column, std::string_view list) {
  table_->set_choices(column, list);
}

QAbstractItemModel& grid_model::shown() const {
  return *table_;
}

}  // namespace ta_vorlumine
