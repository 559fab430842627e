#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>

#include "controls/tree/tree_view.h"
#include "platform/composition_label.h"

namespace ta_vorlumine {

void SSTree::tree_view::set_up_search() {
  search_.current = [this] { return current(); };
  search_.on_hit = [this](const tree_node& node) { setCurrentIndex(model.index_of(node)); };
  search_.on_shown = [this] {
    updateGeometries();
    scrollTo(currentIndex());
  };
  auto* find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, this, [this] { search_.type({}); });
}

const tree_node* SSTree::tree_view::current() const {
  return currentIndex().isValid() ? tree_model::node_at(currentIndex()) : nullptr;
}

void SSTree::tree_view::keyPressEvent(QKeyEvent* event) {
  if (search_.awaits_keys) return search_.take_key(*event);
  // Without the focus, the key has come up from the search box, which had no use for it.
  if (!hasFocus()) return event->ignore();
  const tree_node* node = current();
  switch (event->key()) {
    case Qt::Key_Space:
      select(node);
      return raise_click(node);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return raise_open(node);
    case Qt::Key_Escape:
      return search_.is_open() ? search_.close_box() : model.mark(nullptr);
    case Qt::Key_F10:
      if (event->modifiers() != Qt::ShiftModifier) break;
      return open_menu_of_current();
    case Qt::Key_Left:
    case Qt::Key_Right:
      return event->modifiers().testFlag(Qt::ControlModifier)
                 ? scroll_sideways(event->key() == Qt::Key_Left)
                 : step_sideways(currentIndex(), event->key() == Qt::Key_Left);
    default:
      if (event->modifiers() == Qt::NoModifier && press_command_of(event->key())) return;
  }
  QTreeView::keyPressEvent(event);
}

void SSTree::tree_view::scroll_sideways(bool left) {
  horizontalScrollBar()->triggerAction(left ? QScrollBar::SliderSingleStepSub
                                            : QScrollBar::SliderSingleStepAdd);
}

// Left and Right, which the toolkit would take for scrolling where the tree is wider than its
// window.
void SSTree::tree_view::step_sideways(const QModelIndex& from, bool left) {
  if (!from.isValid()) return;
  const bool open = isExpanded(from) && model.hasChildren(from);
  if (left && open) return collapse(from);
  if (!left && !open) return expand(from);
  const QModelIndex to = left ? from.parent() : model.index(0, 0, from);
  if (to.isValid()) setCurrentIndex(to);
}

void SSTree::tree_view::keyboardSearch(const QString& typed) {
  if (!typed.isEmpty() && typed.front().isPrint()) search_.type(typed);
}

void SSTree::tree_view::inputMethodEvent(QInputMethodEvent* event) {
  const bool nothing = event->preeditString().isEmpty() && event->commitString().isEmpty();
  if (nothing && !search_.awaits_keys) return event->ignore();
  if (platform::is_space_bar(*event) && !search_.awaits_keys) {
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    return keyPressEvent(&space);
  }
  search_.compose(*event);
  QGuiApplication::inputMethod()->update(Qt::ImQueryInput);
}

// On, though the toolkit turns input methods off for what can't be edited.
QVariant SSTree::tree_view::inputMethodQuery(Qt::InputMethodQuery query) const {
  return query == Qt::ImEnabled ? true : search_.answer(query);
}

void SSTree::tree_view::focusOutEvent(QFocusEvent* event) {
  search_.awaits_keys = false;
  QTreeView::focusOutEvent(event);
}

// The search box stands at the foot and covers no row.
void SSTree::tree_view::updateGeometries() {
  QTreeView::updateGeometries();
  const int height = search_.is_open() ? search_.sizeHint().height() : 0;
  setViewportMargins(0, 0, 0, height);
  const QRect rows = viewport()->geometry();
  search_.setGeometry(rows.left(), rows.bottom() + 1, rows.width(), height);
}

}  // namespace ta_vorlumine
