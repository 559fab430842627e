#include "controls/tree/tree_view.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include "platform/fonts.h"
#include "platform/key_codes.h"

namespace ta_vorlumine {
namespace {

int shift_of(const QMouseEvent& event) {
  return platform::shift_state(event.modifiers());
}

}  // namespace

SSTree::tree_view::tree_view(SSTree& tree)
    : model(tree.nodes_, *this), tree_(tree), search_(tree.nodes_, *this) {
  setModel(&model);
  setHeaderHidden(true);
  constexpr int icon = 240;  // twips
  setIconSize(QSize(platform::scaled_pixels(icon), platform::scaled_pixels(icon)));
  header()->setSectionResizeMode(QHeaderView::Fixed);
  header()->setStretchLastSection(false);
  // With SelectRows the toolkit, asked by a screen reader for a nested node, would select the node
  // that has the same row number at the top of the tree.
  setSelectionBehavior(SelectItems);
  setAcceptDrops(true);
  setDropIndicatorShown(false);
  connect(this, &QTreeView::expanded, this,
          [](const QModelIndex& index) { tree_model::node_at(index)->expanded = true; });
  connect(this, &QTreeView::collapsed, this,
          [this](const QModelIndex& index) { close_over_current(index); });
  follow_nodes();
  set_up_search();
}

// The search and the width of the column hold what they have read of the nodes' texts: both forget
// it when a node changes.
void SSTree::tree_view::follow_nodes() {
  const auto forget = [this] {
    search_.forget_nodes();
    widest_is_outdated_ = true;
  };
  connect(&model, &tree_model::modelReset, this, forget);
  connect(&model, &tree_model::rowsInserted, this, forget);
  connect(&model, &tree_model::rowsAboutToBeRemoved, this, forget);
  connect(&model, &tree_model::rowsMoved, this, forget);
  connect(&model, &tree_model::dataChanged, this, forget);
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
    widest_ = 0;
    fit_column();
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
  search_.awaits_keys = false;
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

}  // namespace ta_vorlumine
