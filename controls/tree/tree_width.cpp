#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "controls/tree/tree_view.h"
#include "platform/hint.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {

int SSTree::tree_view::right_end(const QModelIndex& index) const {
  return visualRect(index).left() + sizeHintForIndex(index).width();
}

void SSTree::tree_view::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (widest_is_outdated_) widest_ = 0;
  widest_is_outdated_ = false;
  QModelIndex row = indexAt(QPoint(0, 0));
  for (; row.isValid() && visualRect(row).top() < viewport()->height(); row = indexBelow(row)) {
    widest_ = std::max(widest_, right_end(row) + horizontalOffset());
  }
  fit_column();
}

// No narrower than the window: a row takes a click over the whole width, however short its text.
void SSTree::tree_view::fit_column() {
  header()->resizeSection(0, std::max(widest_, viewport()->width()));
}

void SSTree::tree_view::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  fit_column();
}

// Where the tree is wider than its window, the toolkit's scrollTo would go back to the left end at
// each step, and never to a node that lies to the right of the window.
void SSTree::tree_view::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QScrollBar& sideways = *horizontalScrollBar();
  const int before = sideways.value();
  QTreeView::scrollTo(index, hint);
  sideways.setValue(before);
  if (!index.isValid()) return;
  widest_ = std::max(widest_, right_end(index) + horizontalOffset());
  fit_column();
  updateGeometries();
  const int width = viewport()->width();
  const int left = visualRect(index).left();
  const int right = right_end(index);
  const int beginning = std::min(right - left, width / 4);
  if (left < 0 || left + beginning > width) {
    const int arrow = left - indentation();
    sideways.setValue(sideways.value() + (left < 0 ? arrow : std::min(arrow, right - width)));
  }
}

// A text that the window cuts off can be read by pointing at it.
bool SSTree::tree_view::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const QModelIndex index = indexAt(help.pos());
  const QRect place = visualRect(index);
  const bool cut = place.left() < 0 || right_end(index) > viewport()->width();
  QToolTip::showText(help.globalPos(),
                     index.isValid() && cut
                         ? platform::hint(platform::to_toolkit(tree_model::node_at(index)->text))
                         : QString(),
                     viewport(), place);
  return true;
}

}  // namespace ta_vorlumine
