#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>

#include "controls/tree/tree_view.h"
#include "platform/contrast.h"

namespace ta_vorlumine {
namespace {

constexpr int drag_beat = 50;      // milliseconds
constexpr int beats_to_open = 12;  // of rest on a closed folder
constexpr int edge = 20;           // pixels
constexpr int beats_to_speed_up = 10;

/// Which way the edge lies that `place` is near to: -1, 0 or 1.
int edge_at(int place, int length) {
  return place < edge ? -1 : static_cast<int>(place >= length - edge);
}

}  // namespace

// What the drop leads to, a message perhaps, must not run inside the toolkit's drag: it holds the
// pointer. So the drop is noted, and raised once the drag has ended.
void SSTree::tree_view::drag(const tree_node& node) {
  auto* gesture = new QDrag(this);
  gesture->setMimeData(new QMimeData);
  gesture->mimeData()->setData("application/x-tree-node", QByteArray::fromStdString(node.key));
  const QModelIndex dragged = model.index_of(node);
  gesture->setPixmap(viewport()->grab({visualRect(dragged).topLeft(), sizeHintForIndex(dragged)}));
  dropped_ = false;
  drag_beat_.start(drag_beat, this);
  gesture->exec(Qt::MoveAction);
  drag_beat_.stop();
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

// In a drag the tree scrolls and opens folders by a timer of its own: the toolkit's would scroll
// only under a pointer that rests, and close the open folder that the pointer rests on.
void SSTree::tree_view::timerEvent(QTimerEvent* event) {
  if (event->timerId() != drag_beat_.timerId()) return QTreeView::timerEvent(event);
  if (state() != DraggingState) return;
  scroll_at_edge();
  open_what_is_rested_on();
}

void SSTree::tree_view::scroll_at_edge() {
  const int down = edge_at(drag_place_.y(), viewport()->height());
  const int right = edge_at(drag_place_.x(), viewport()->width());
  beats_at_edge_ = down == 0 && right == 0 ? 0 : beats_at_edge_ + 1;
  QScrollBar& rows = *verticalScrollBar();
  rows.setValue(rows.value() + down * (1 + beats_at_edge_ / beats_to_speed_up));
  QScrollBar& columns = *horizontalScrollBar();
  columns.setValue(columns.value() + right * edge);
}

void SSTree::tree_view::open_what_is_rested_on() {
  const QModelIndex under = indexAt(drag_place_);
  beats_at_rest_ = under == rested_on_ ? beats_at_rest_ + 1 : 0;
  rested_on_ = under;
  if (beats_at_rest_ == beats_to_open) expand(under);
}

// Scrolling at the edge brings another node under a pointer that rests.
void SSTree::tree_view::scrollContentsBy(int dx, int dy) {
  QTreeView::scrollContentsBy(dx, dy);
  if (state() == DraggingState) raise_drag_over(drag_place_);
}

// Frames the place of a drop, the node that the menu has marked to be moved, and the keyboard's
// place, which some styles mark with no more than a shade.
void SSTree::tree_view::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
  QTreeView::drawRow(painter, option, index);
  const tree_node* node = tree_model::node_at(index);
  const bool is_target = tree_.drop_highlight_.lock().get() == node;
  const bool is_marked = model.marked() == node;
  const bool has_keyboard = hasFocus() && index == currentIndex() && node != selected();
  if (!is_target && !is_marked && !has_keyboard) return;
  QColor colour =
      platform::readable_on(palette().color(QPalette::Base), palette().color(QPalette::Highlight));
  const QRect row(visualRect(index));
  const bool dashed = is_marked && !is_target;
  painter->setPen(QPen(colour, dashed || is_target ? 2 : 1, dashed ? Qt::DashLine : Qt::SolidLine));
  painter->drawRect(row.adjusted(1, 1, -1, -1));
  colour.setAlpha(60);
  if (is_target) painter->fillRect(row, colour);
}

}  // namespace ta_vorlumine
