#include "controls/grid/grid_view.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <utility>

#include "controls/grid/cell_painter.h"
#include "controls/grid/table_view.h"

namespace ta_vorlumine {

table_view::table_view(grid_cells& cells, const grid_edit::events& events)
    : cells_(cells),
      model_(cells),
      cursor_(*this, events.taken),
      edit_(*this, cells, model_, {events.refuses, [this] { cursor_.check_row(); }}),
      press_elsewhere_(*this, edit_, cursor_),
      paste_(*this, cells_, model_, edit_, cursor_) {
  setModel(&model_.shown());
  setItemDelegate(make_cell_painter(*this));
  setShowGrid(false);  // the delegate draws it
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  verticalHeader()->hide();
  horizontalHeader()->setStretchLastSection(true);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this] { dragged_ = dragged_ || (isVisible() && !laying_out_ && is_dragged()); });
  horizontalHeader()->setSectionsClickable(false);
  edit_.editor().on_key = [this](QKeyEvent& key) { return key_in_editor(key); };
}

void table_view::mousePressEvent(QMouseEvent* event) {
  const QModelIndex cell = indexAt(event->position().toPoint());
  pressed_again_ = cell == currentIndex();
  QTableView::mousePressEvent(event);
  pressed_ = event->button() == Qt::LeftButton ? cell : QModelIndex();
  cursor_.check_row();
}

// The toolkit would take a move with a button held for a wish to select what it passes.
void table_view::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) QTableView::mouseMoveEvent(event);
}

void table_view::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const QPoint place = event->position().toPoint();
  const QPersistentModelIndex cell = std::exchange(pressed_, QPersistentModelIndex());
  if (!cell.isValid() || cell != indexAt(place)) return;
  const cell_place released = model_.place_of(cell);
  if (!cells_.drops_down(released.column) && !pressed_again_) return;
  edit_.open(released);
  edit_.editor().line().selectAll();
}

grid_view& grid_view::make(grid_cells& cells, const grid_edit::events& events) {
  return *new table_view(cells, events);
}

}  // namespace ta_vorlumine
