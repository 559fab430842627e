#include "controls/tree/tree_view.h"

#include <QApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <vector>

#include "platform/key_codes.h"

namespace ta_vorlumine {
namespace {

int shift_of(const QMouseEvent& event) {
  return platform::shift_state(event.modifiers());
}

}  // namespace

SSTree::tree_view::tree_view(SSTree& tree) : model(tree.nodes_, *this), tree_(tree) {
  setModel(&model);
  setHeaderHidden(true);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  header()->setResizeContentsPrecision(0);
  // By rows, the toolkit would have a screen reader select the row of this number at the top.
  setSelectionBehavior(SelectItems);
  setEditTriggers(NoEditTriggers);
  setAcceptDrops(true);
  setDropIndicatorShown(false);
  connect(this, &QTreeView::expanded, this,
          [](const QModelIndex& index) { tree_model::node_at(index)->expanded = true; });
  connect(this, &QTreeView::collapsed, this,
          [this](const QModelIndex& index) { close_over_current(index); });
}

// The keyboard's place survives a rebuild, unselected, so that whoever works without a mouse goes
// on where they were.
void SSTree::tree_view::redraw(bool on) {
  if (model.hidden() == !on) return;
  const QScopedValueRollback quiet(quiet_, true);
  if (!on) {
    const QModelIndex current = currentIndex();
    current_key_ = current.isValid() ? tree_model::node_at(current)->key : std::string();
    model.hide(true);
  } else {
    model.hide(false);
    show_expansions();
    if (const tree_node* current = tree_.nodes_.find(current_key_)) {
      setAutoScroll(false);
      selectionModel()->setCurrentIndex(model.index_of(*current), QItemSelectionModel::NoUpdate);
      setAutoScroll(true);
    }
    if (const tree_node* top = tree_.nodes_.find(top_key_)) show_on_top(*top);
    top_key_.clear();
  }
}

// One pass of the toolkit over a tree that is open throughout, as it is after each load, is far
// cheaper than opening node by node.
void SSTree::tree_view::show_expansions() {
  bool all = true;
  for (std::size_t i = 0; i < tree_.nodes_.count() && all; ++i) {
    const tree_node& node = *tree_.nodes_.at(i);
    all = node.expanded || node.children.empty();
  }
  if (all) return expandAll();
  for (std::size_t i = 0; i < tree_.nodes_.count(); ++i) {
    const tree_node& node = *tree_.nodes_.at(i);
    if (node.expanded && !node.children.empty()) expand(model.index_of(node));
  }
}

void SSTree::tree_view::clear() {
  const bool drawn = !model.hidden();
  if (drawn) redraw(false);
  top_key_.clear();
  tree_.nodes_.clear();
  if (drawn) redraw(true);
}

void SSTree::tree_view::show_on_top(const tree_node& node) {
  if (model.hidden()) {
    top_key_ = node.key;
  } else {
    scrollTo(model.index_of(node), PositionAtTop);
  }
}

const tree_node* SSTree::tree_view::node_at(QPoint place) const {
  const QModelIndex index = indexAt(place);
  return index.isValid() ? tree_model::node_at(index) : nullptr;
}

const tree_node* SSTree::tree_view::visible(std::size_t number) const {
  QModelIndex index = indexAt(QPoint(1, 1));
  for (; number > 1 && index.isValid(); --number) index = indexBelow(index);
  const bool shown = index.isValid() && viewport()->rect().intersects(visualRect(index));
  return shown ? tree_model::node_at(index) : nullptr;
}

bool SSTree::tree_view::on_arrow(QPoint place) const {
  const QModelIndex index = indexAt(place);
  if (!index.isValid() || model.rowCount(index) == 0) return false;
  const int left = visualRect(index).left();
  return place.x() < left && place.x() >= left - indentation();
}

void SSTree::tree_view::raise_click(const tree_node* node) {
  if (!node || !tree_.on_node_click) return;
  tree_.raise([this, hand = tree_.in_hand(node)] { tree_.on_node_click(hand); });
}

void SSTree::tree_view::raise_open(const tree_node* node) {
  if (!node || !tree_.on_node_open) return;
  tree_.raise([this, hand = tree_.in_hand(node)] { tree_.on_node_open(hand); });
}

void SSTree::tree_view::mousePressEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const bool arrow = on_arrow(place);
  {
    const QScopedValueRollback quiet(quiet_, true);
    QTreeView::mousePressEvent(event);
  }
  press_pending_ = !arrow;
  if (arrow) return;
  pressed_ = place;
  if (tree_.on_mouse_down) {
    const int button = static_cast<int>(event->button());
    tree_.raise([&] { tree_.on_mouse_down(button, shift_of(*event), place.x(), place.y()); });
  }
  raise_click(node_at(place));
}

// The toolkit would take a move with a button held for a wish to select what it passes.
void SSTree::tree_view::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) return QTreeView::mouseMoveEvent(event);
  const QPoint place = event->position().toPoint();
  const bool left_place = (place - pressed_).manhattanLength() >= QApplication::startDragDistance();
  if (!press_pending_ || !left_place || !tree_.on_mouse_move) return;
  press_pending_ = false;
  const int buttons = static_cast<int>(event->buttons());
  tree_.raise([&] { tree_.on_mouse_move(buttons, shift_of(*event), place.x(), place.y()); });
}

void SSTree::tree_view::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  QTreeView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && !on_arrow(place)) raise_open(node_at(place));
}

void SSTree::tree_view::keyPressEvent(QKeyEvent* event) {
  const QModelIndex current = currentIndex();
  const tree_node* node = current.isValid() ? tree_model::node_at(current) : nullptr;
  switch (event->key()) {
    case Qt::Key_Space:
      select(node);
      return raise_click(node);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return raise_open(node);
    case Qt::Key_Left:
    case Qt::Key_Right:
      if (event->modifiers().testFlag(Qt::ControlModifier) || !node) break;
      return step_sideways(current, event->key() == Qt::Key_Left);
    default:
      break;
  }
  QTreeView::keyPressEvent(event);
}

// The toolkit's own would scroll where the tree is wider than its window.
void SSTree::tree_view::step_sideways(const QModelIndex& from, bool left) {
  const bool open = isExpanded(from) && model.hasChildren(from);
  if (left && open) return collapse(from);
  if (!left && !open) return expand(from);
  const QModelIndex to = left ? from.parent() : model.index(0, 0, from);
  if (to.isValid()) setCurrentIndex(to);
}

// Searches the nodes that the arrow keys reach: those whose folders are open.
void SSTree::tree_view::keyboardSearch(const QString& typed) {
  std::vector<QModelIndex> rows;
  for (QModelIndex row = model.index(0, 0, {}); row.isValid(); row = indexBelow(row)) {
    rows.push_back(row);
  }
  const auto here = std::find(rows.begin(), rows.end(), currentIndex());
  const auto count = static_cast<int>(rows.size());
  const auto current = here == rows.end() ? -1 : static_cast<int>(here - rows.begin());
  const auto row_at = [&](int number) { return rows[static_cast<std::size_t>(number)]; };
  const int found =
      search_.find(typed, current, count, [&](int row) { return row_at(row).data().toString(); });
  if (found >= 0) setCurrentIndex(row_at(found));
}

void SSTree::tree_view::inputMethodEvent(QInputMethodEvent* event) {
  composed_.show_composition(*event, searched_from());
  if (platform::is_space_bar(*event)) {
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    keyPressEvent(&space);
  } else if (!event->commitString().isEmpty()) {
    keyboardSearch(event->commitString());
  }
}

QVariant SSTree::tree_view::inputMethodQuery(Qt::InputMethodQuery query) const {
  return composed_.answer(query, searched_from());
}

/// The current node if it is in sight, else the top.
QRect SSTree::tree_view::searched_from() const {
  const QRect current = visualRect(currentIndex());
  return viewport()->rect().intersects(current) ? current : visualRect(indexAt(QPoint(1, 1)));
}

// A row takes a click over the whole width, however short its text.
void SSTree::tree_view::resizeEvent(QResizeEvent* event) {
  header()->setMinimumSectionSize(viewport()->width());
  QTreeView::resizeEvent(event);
}

}  // namespace ta_vorlumine
