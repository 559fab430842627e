#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "controls/grid/table_view.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {
namespace {

bool is_typed_text(const QKeyEvent& key) {
  const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const QString text = key.text();
  return !(key.modifiers() & commands) && !text.isEmpty() && text.front().unicode() >= u' ' &&
         text.front().unicode() != 0x7f;
}

bool is_enter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool moves_forward(const QKeyEvent& enter) {
  return !enter.modifiers().testFlag(Qt::ShiftModifier);
}

// With many rows the last cell is far for whoever wants to Tab out of the grid.
bool is_way_out(const QKeyEvent& key) {
  return key.modifiers().testFlag(Qt::ControlModifier) &&
         (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab);
}

}  // namespace

// If the row check has removed the row, the user is on the one that took its place, and moving on
// would skip that.
bool table_view::leave_edit() {
  const QPersistentModelIndex cell = currentIndex();
  return edit_.take() && cell.isValid();
}

void table_view::keyPressEvent(QKeyEvent* event) {
  if (edit_.is_open()) {
    // The focus is still here after a composition that began on the cell. Without it, the key has
    // come up from the editor, which had no use for it.
    if (!hasFocus()) return event->ignore();
    edit_.editor().line().setFocus();
    QCoreApplication::sendEvent(&edit_.editor().line(), event);
    return;
  }
  if (event->key() == Qt::Key_Escape) return event->ignore();
  if (is_way_out(*event)) {
    QTableView::focusNextPrevChild(event->key() == Qt::Key_Tab);
    return;
  }
  if (cells_.rows() == 1) cursor_.check_row();
  const QModelIndex cell = currentIndex();
  if (edit_.enabled && cell.isValid() && key_on_cell(*event, model_.place_of(cell))) return;
  QTableView::keyPressEvent(event);
  if (currentIndex() != cell) cursor_.check_row();
}

bool table_view::key_on_cell(const QKeyEvent& key, cell_place cell) {
  const bool drop_key = key.key() == Qt::Key_Space ||
                        (key.key() == Qt::Key_Down && key.modifiers().testFlag(Qt::AltModifier));
  if (key.key() == Qt::Key_F2 || (drop_key && cells_.drops_down(cell.column))) {
    edit_.open(cell);
  } else if (is_enter(key)) {
    cursor_.move_on(moves_forward(key));
  } else if (key.key() == Qt::Key_Delete) {
    edit_.clear(cell);
  } else if (key.key() == Qt::Key_Backspace) {
    cells_.drops_down(cell.column) ? edit_.clear(cell) : edit_.replace(cell, {});
  } else if (key.matches(QKeySequence::Paste)) {
    paste_.run();
  } else if (is_typed_text(key)) {
    edit_.replace(cell, platform::from_toolkit(key.text()));
  } else {
    return false;
  }
  return true;
}

bool table_view::key_in_editor(QKeyEvent& key) {
  if (is_enter(key)) {
    if (leave_edit()) cursor_.move_on(moves_forward(key));
  } else if (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down || is_way_out(key)) {
    if (leave_edit()) keyPressEvent(&key);
  } else if (key.key() == Qt::Key_Escape) {
    edit_.drop();
  } else if (key.matches(QKeySequence::Paste) && grid_paste::has_several_cells()) {
    edit_.drop();
    paste_.run();
  } else {
    return false;
  }
  return true;
}

// Tab comes here from the cells and from the editor.
bool table_view::focusNextPrevChild(bool next) {
  const bool has_cell = currentIndex().isValid();
  if (has_cell && (!leave_edit() || cursor_.move_on(next))) return true;
  return QTableView::focusNextPrevChild(next);
}

void table_view::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  const Qt::FocusReason why = event->reason();
  if (why != Qt::TabFocusReason && why != Qt::BacktabFocusReason) return;
  if (cells_.rows() == 1) cursor_.check_row();
  cursor_.find_cell();
}

}  // namespace ta_vorlumine
