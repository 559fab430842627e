#include "controls/grid/edit_ended_by_press.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTableView>

namespace ta_vorlumine {

edit_ended_by_press::edit_ended_by_press(QTableView& view, grid_edit& edit, grid_cursor& cursor)
    : view_(view), edit_(edit), cursor_(cursor) {
  qApp->installEventFilter(this);
}

bool edit_ended_by_press::eventFilter(QObject* receiver, QEvent* event) {
  const bool press =
      event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
  if (event->type() == QEvent::WindowBlocked && receiver == view_.window()) blocked_ = true;
  return press && receiver->isWidgetType() &&
         swallows(*static_cast<QWidget*>(receiver),
                  static_cast<QMouseEvent*>(event)->position().toPoint());
}

// The press is swallowed if a message came up: its release went to the message, and the control
// below would stay pressed. If the edit has emptied its row, and the row is gone, no other becomes
// current, for a button that deletes was meant for that one; but a press on a cell is for the cell
// that stood there when the user pressed, and the rows have moved up since.
bool edit_ended_by_press::swallows(const QWidget& target, QPoint position) {
  if (&target == &edit_.editor().line() || target.window() != view_.window()) return false;
  blocked_ = false;
  const QPersistentModelIndex cell = edit_.is_open() ? view_.currentIndex() : QModelIndex();
  const QPersistentModelIndex pressed =
      &target == view_.viewport() ? view_.indexAt(position) : QModelIndex();
  const bool was_open = cell.isValid();
  const bool taken = edit_.take();
  const bool row_went = was_open && !cell.isValid();
  if (row_went) view_.setCurrentIndex(pressed);
  if (&target == view_.horizontalHeader()->viewport()) cursor_.check_row();
  return !taken || blocked_ || (row_went && pressed.isValid());
}

}  // namespace ta_vorlumine
