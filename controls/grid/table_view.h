#pragma once

#include <QPersistentModelIndex>
#include <QTableView>

#include "controls/grid/edit_ended_by_press.h"
#include "controls/grid/grid_cells.h"
#include "controls/grid/grid_cursor.h"
#include "controls/grid/grid_edit.h"
#include "controls/grid/grid_model.h"
#include "controls/grid/grid_paste.h"
#include "controls/grid/grid_view.h"

namespace ta_vorlumine {

/// The toolkit's view of the cells, for the grid's own files alone: others hold a grid_view.
class table_view : public QTableView, public grid_view {
 public:
  table_view(grid_cells& cells, const grid_edit::events& events);

  QWidget& widget() override { return *this; }
  grid_model& model() override { return model_; }
  using QTableView::edit;  // Clang warns of hiding it
  grid_edit& edit() override { return edit_; }
  [[nodiscard]] int row() const override { return cursor_.row(); }
  void set_row(int row) override { cursor_.set_row(row); }
  void lay_out_columns() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void updateEditorGeometries() override { edit_.place_editor(); }
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  [[nodiscard]] bool is_dragged() const;
  [[nodiscard]] bool takes_compositions() const;
  bool leave_edit();
  bool key_on_cell(const QKeyEvent& key, cell_place cell);
  bool key_in_editor(QKeyEvent& key);

  grid_cells& cells_;
  grid_model model_;
  grid_cursor cursor_;
  grid_edit edit_;
  edit_ended_by_press press_elsewhere_;
  grid_paste paste_;
  bool laying_out_ = false;
  bool dragged_ = false;  // the user has given the columns other widths
  QPersistentModelIndex pressed_;
  bool pressed_again_ = false;  // the pressed cell had been the current one already
};

}  // namespace ta_vorlumine
