#include <QInputMethodEvent>
#include <QLineEdit>

#include "controls/grid/table_view.h"

namespace ta_vorlumine {

// A composition that begins on a cell is shown in the cell's editor, but the focus stays on the
// grid: a change of the focus would end the composition at its first letter. keyPressEvent() moves
// the focus to the editor, with the next key that the input method leaves to the window.
void table_view::inputMethodEvent(QInputMethodEvent* event) {
  const bool composing = !event->preeditString().isEmpty();
  if (!edit_.is_open()) {
    if (!composing && event->commitString().isEmpty()) return event->ignore();
    if (cells_.rows() == 1) cursor_.check_row();
    if (!takes_compositions() || !currentIndex().isValid()) return event->ignore();
    edit_.begin_empty(model_.place_of(currentIndex()));
  }
  QLineEdit& line = edit_.editor().line();
  line.event(event);
  const bool given_up = !composing && line.text().isEmpty();
  if (given_up) edit_.drop();  // the cell keeps what it had
  updateMicroFocus();
}

// Off where a list drops down: its entries are picked by digit, and an input method would turn the
// digit into a composition. On where there are no rows yet: the first letter makes one.
bool table_view::takes_compositions() const {
  const QModelIndex cell = currentIndex();
  return edit_.enabled && !(cell.isValid() && cells_.drops_down(model_.place_of(cell).column));
}

QVariant table_view::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return takes_compositions();
  const QLineEdit& line = edit_.editor().line();
  if (edit_.is_open() && query != Qt::ImCursorRectangle) return line.inputMethodQuery(query);
  if (query != Qt::ImCursorRectangle) return QTableView::inputMethodQuery(query);
  const QPoint corner = viewport()->pos();
  if (!edit_.is_open()) return visualRect(currentIndex()).translated(corner);
  return line.inputMethodQuery(query).toRectF().translated(corner + line.pos());
}

// The input method asks again whether it may compose here.
void table_view::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  updateMicroFocus(Qt::ImQueryAll);
}

}  // namespace ta_vorlumine
