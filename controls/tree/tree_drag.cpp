#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>

#include "controls/tree/tree_view.h"

namespace ta_vorlumine {

// What the drop leads to, a message perhaps, must not run inside the toolkit's drag: it holds the
// pointer. So the drop is noted, and raised once the drag has ended.
void SSTree::tree_view::drag(const tree_node& node) {
  auto* gesture = new QDrag(this);
  gesture->setMimeData(new QMimeData);
  gesture->mimeData()->setData("application/x-tree-node", QByteArray::fromStdString(node.key));
  const QModelIndex dragged = model.index_of(node);
  gesture->setPixmap(viewport()->grab({visualRect(dragged).topLeft(), sizeHintForIndex(dragged)}));
  dropped_ = false;
  gesture->exec(Qt::MoveAction);
  stopAutoScroll();
  setState(NoState);
  if (dropped_ && tree_.on_drop) tree_.raise(tree_.on_drop);
  if (!dropped_) tree_.DropHighlight(Node());
}

void SSTree::tree_view::dragEnterEvent(QDragEnterEvent* event) {
  if (event->source() == this) event->acceptProposedAction();
}

void SSTree::tree_view::dragMoveEvent(QDragMoveEvent* event) {
  if (event->source() != this) return;
  setState(DraggingState);
  QTreeView::dragMoveEvent(event);  // scrolls at the edges, opens what the pointer rests on
  raise_drag_over(event->position().toPoint());
  event->acceptProposedAction();
}

void SSTree::tree_view::dragLeaveEvent(QDragLeaveEvent* event) {
  QTreeView::dragLeaveEvent(event);
  tree_.DropHighlight(Node());
}

void SSTree::tree_view::dropEvent(QDropEvent* event) {
  if (event->source() != this) return;
  raise_drag_over(event->position().toPoint());
  dropped_ = true;
  event->acceptProposedAction();
}

void SSTree::tree_view::raise_drag_over(QPoint place) {
  drag_place_ = place;
  if (tree_.on_drag_over) tree_.raise([&] { tree_.on_drag_over(place.x(), place.y()); });
}

// Scrolling at the edge brings another node under a pointer that rests.
void SSTree::tree_view::scrollContentsBy(int dx, int dy) {
  QTreeView::scrollContentsBy(dx, dy);
  if (state() == DraggingState) raise_drag_over(drag_place_);
}

void SSTree::tree_view::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
  QTreeView::drawRow(painter, option, index);
  const auto highlighted = tree_.drop_highlight_.lock();
  if (!highlighted || highlighted.get() != tree_model::node_at(index)) return;
  QColor colour = palette().color(QPalette::Highlight);
  const QRect row(visualRect(index));
  painter->setPen(QPen(colour, 2));
  painter->drawRect(row.adjusted(1, 1, -1, -1));
  colour.setAlpha(60);
  painter->fillRect(row, colour);
}

}  // namespace ta_vorlumine
