#include "browser/ss_tree.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QDrag>
#include <QHash>
#include <QHeaderView>
#include <QIcon>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTreeView>

#include "platform/contrast.h"
#include "platform/fonts.h"
#include "platform/form.h"
#include "platform/key_codes.h"
#include "platform/native.h"

namespace ta_vorlumine {
namespace {

using platform::to_toolkit;

/// Shows the nodes to the toolkit. While hidden it has no rows, so that nodes come and go freely.
class tree_model : public QAbstractItemModel {
 public:
  tree_model(tree_nodes& nodes, const QWidget& view) : nodes_(nodes), view_(view) {}

  [[nodiscard]] bool hidden() const { return hidden_; }

  void hide(bool hidden) {
    if (hidden_ == hidden) return;
    beginResetModel();
    hidden_ = hidden;
    endResetModel();
  }

  void set_pictures(const platform::ImageList& pictures) {
    pictures_ = &pictures;
    icons_.clear();
  }

  [[nodiscard]] QModelIndex index_of(const tree_node& node) const {
    return hidden_ || !node.parent ? QModelIndex() : at(node.row, node);
  }

  static tree_node* node_at(const QModelIndex& index) {
    return static_cast<tree_node*>(index.internalPointer());
  }

  tree_node& insert(tree_node& parent, std::string_view key, std::string_view text,
                    std::string_view tag) {
    // A taken key must be refused before the view is told of a row to come.
    if (hidden_ || nodes_.find(key)) return nodes_.add(parent, key, text, tag);
    const int row = static_cast<int>(parent.children.size());
    beginInsertRows(index_of(parent), row, row);
    tree_node& added = nodes_.add(parent, key, text, tag);
    endInsertRows();
    return added;
  }

  void remove(tree_node& node) {
    if (hidden_) return nodes_.remove(node);
    const int row = static_cast<int>(node.row);
    beginRemoveRows(index_of(*node.parent), row, row);
    nodes_.remove(node);
    endRemoveRows();
  }

  void move(tree_node& node, tree_node& parent) {
    const bool stays = node.parent == &parent && node.row + 1 == parent.children.size();
    if (stays) return;
    if (hidden_) return nodes_.move(node, parent);
    const int row = static_cast<int>(node.row);
    beginMoveRows(index_of(*node.parent), row, row, index_of(parent),
                  static_cast<int>(parent.children.size()));
    nodes_.move(node, parent);
    endMoveRows();
  }

  void show_change(const tree_node& node) {
    if (hidden_) return;
    const QModelIndex index = index_of(node);
    emit dataChanged(index, index);
  }

  [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override {
    if (!hasIndex(row, column, parent)) return {};
    const auto place = static_cast<std::size_t>(row);
    return at(place, *family(parent).children[place]);
  }

  [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override {
    return index.isValid() ? index_of(*node_at(index)->parent) : QModelIndex();
  }

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return hidden_ ? 0 : static_cast<int>(family(parent).children.size());
  }

  [[nodiscard]] int columnCount(const QModelIndex&) const override { return 1; }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const tree_node& node = *node_at(index);
    switch (role) {
      case Qt::DisplayRole:
        return to_toolkit(node.text).replace('\n', ' ');
      case Qt::ForegroundRole:
        return platform::readable_on(view_.palette().color(QPalette::Base),
                                     QColor(node.colour.red, node.colour.green, node.colour.blue));
      case Qt::FontRole:
        return font(node);
      case Qt::DecorationRole:
        return picture(node.expanded && !node.expanded_image.empty() ? node.expanded_image
                                                                     : node.image);
      default:
        return {};
    }
  }

 private:
  [[nodiscard]] QModelIndex at(std::size_t row, const tree_node& node) const {
    return createIndex(static_cast<int>(row), 0, &node);
  }

  [[nodiscard]] const tree_node& family(const QModelIndex& parent) const {
    return parent.isValid() ? *node_at(parent) : nodes_.top();
  }

  [[nodiscard]] static QFont font(const tree_node& node) {
    QFont font = platform::window_font();
    font.setPointSize(node.font_size);
    font.setBold(node.bold);
    return font;
  }

  [[nodiscard]] QIcon picture(const std::string& key) const {
    if (key.empty() || !pictures_) return {};
    const QString name = to_toolkit(key);
    const auto found = icons_.constFind(name);
    if (found != icons_.constEnd()) return *found;
    return *icons_.insert(name, QIcon(to_toolkit(pictures_->path(key))));
  }

  tree_nodes& nodes_;
  const QWidget& view_;
  const platform::ImageList* pictures_ = nullptr;
  mutable QHash<QString, QIcon> icons_;
  bool hidden_ = false;
};

int shift_of(const QMouseEvent& event) {
  return platform::shift_state(event.modifiers());
}

}  // namespace

/// The toolkit's view of the nodes. Raises the tree's events.
class SSTree::tree_view : public QTreeView {
 public:
  explicit tree_view(SSTree& tree) : model(tree.nodes_, *this), tree_(tree) {
    setModel(&model);
    setHeaderHidden(true);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setResizeContentsPrecision(0);
    // By rows, the toolkit would have a screen reader select the row of this number at the top.
    setSelectionBehavior(SelectItems);
    setEditTriggers(NoEditTriggers);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setAutoExpandDelay(drag_expand_delay);
    connect(this, &QTreeView::expanded, this,
            [](const QModelIndex& index) { tree_model::node_at(index)->expanded = true; });
    connect(this, &QTreeView::collapsed, this,
            [](const QModelIndex& index) { tree_model::node_at(index)->expanded = false; });
  }

  void redraw(bool on);
  void select(const tree_node* node);
  void remove(tree_node& node);
  void drag(const tree_node& node);
  [[nodiscard]] const tree_node* node_at(QPoint place) const;

  tree_model model;
  const tree_node* top_when_drawn = nullptr;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void selectionChanged(const QItemSelection& on, const QItemSelection& off) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  static constexpr int drag_expand_delay = 600;  // milliseconds

  [[nodiscard]] bool on_arrow(QPoint place) const;
  void show_expansions();
  void raise_click(const tree_node* node);
  void raise_open(const tree_node* node);
  void raise_drag_over(QPoint place);

  SSTree& tree_;
  bool quiet_ = false;  // selections are not raised: the press that makes them raises its own click
  QPoint pressed_;
  bool press_pending_ = false;  // a button is down and the pointer has not yet left its place
  bool dropped_ = false;
  QPoint drag_place_;
  std::string current_key_;
};

// The keyboard's place survives a rebuild, unselected, so that whoever works without a mouse goes
// on where they were.
void SSTree::tree_view::redraw(bool on) {
  if (model.hidden() == !on) return;
  quiet_ = true;
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
    if (top_when_drawn) scrollTo(model.index_of(*top_when_drawn), PositionAtTop);
    top_when_drawn = nullptr;
  }
  quiet_ = false;
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

void SSTree::tree_view::select(const tree_node* node) {
  quiet_ = true;
  if (node) {
    setCurrentIndex(model.index_of(*node));
  } else {
    clearSelection();
  }
  quiet_ = false;
}

// The toolkit would select a neighbour of what goes, which nobody has chosen.
void SSTree::tree_view::remove(tree_node& node) {
  const QModelIndexList selected = selectionModel()->selectedIndexes();
  const std::string key =
      selected.isEmpty() ? std::string() : tree_model::node_at(selected.constFirst())->key;
  quiet_ = true;
  model.remove(node);
  if (!tree_.nodes_.find(key)) clearSelection();
  quiet_ = false;
}

const tree_node* SSTree::tree_view::node_at(QPoint place) const {
  const QModelIndex index = indexAt(place);
  return index.isValid() ? tree_model::node_at(index) : nullptr;
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
  quiet_ = true;
  QTreeView::mousePressEvent(event);
  quiet_ = false;
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
    default:
      QTreeView::keyPressEvent(event);
  }
}

void SSTree::tree_view::selectionChanged(const QItemSelection& on, const QItemSelection& off) {
  QTreeView::selectionChanged(on, off);
  if (quiet_ || on.isEmpty()) return;
  // A screen reader selects without moving the keyboard along.
  const QModelIndex selected = on.indexes().constFirst();
  selectionModel()->setCurrentIndex(selected, QItemSelectionModel::NoUpdate);
  raise_click(tree_model::node_at(selected));
}

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

// A row takes a click over the whole width, however short its text.
void SSTree::tree_view::resizeEvent(QResizeEvent* event) {
  header()->setMinimumSectionSize(viewport()->width());
  QTreeView::resizeEvent(event);
}

SSTree::SSTree(platform::Form& form, std::string name, std::string accessible_name)
    : Control(form, std::move(name)), accessible_name_(std::move(accessible_name)) {}

SSTree::~SSTree() = default;

std::unique_ptr<platform::native> SSTree::make() {
  nodes_.clear();
  auto* made = new tree_view(*this);
  made->setAccessibleName(to_toolkit(accessible_name_));
  return std::make_unique<platform::native>(made);
}

SSTree::tree_view& SSTree::view() {
  return platform::as<tree_view>(peer());
}

void SSTree::raise(const std::function<void()>& event) {
  form().guarded(event);
}

Node SSTree::in_hand(const tree_node* node) {
  return node ? Node(*this, *node) : Node();
}

void SSTree::set_image_list(const platform::ImageList& pictures) {
  view().model.set_pictures(pictures);
}

void SSTree::Indentation(int twips) {
  view().setIndentation(platform::pixels(twips));
}

void SSTree::UniformRows(bool uniform) {
  view().setUniformRowHeights(uniform);
}

void SSTree::Redraw(bool on) {
  view().redraw(on);
}

Node SSTree::SelectedItem() {
  const QModelIndexList selected = view().selectionModel()->selectedIndexes();
  return selected.isEmpty() ? Node() : in_hand(tree_model::node_at(selected.constFirst()));
}

void SSTree::SelectedItem(const Node& node) {
  view().select(node.is_empty() ? nullptr : &node.get());
}

Node SSTree::TopNode() {
  return VisibleNode(1);
}

void SSTree::TopNode(const Node& node) {
  if (view().model.hidden()) {
    view().top_when_drawn = &node.get();
  } else {
    view().scrollTo(view().model.index_of(node.get()), QAbstractItemView::PositionAtTop);
  }
}

Node SSTree::DropHighlight() {
  return in_hand(drop_highlight_.lock().get());
}

void SSTree::DropHighlight(const Node& node) {
  drop_highlight_ = node.node_;
  view().viewport()->update();
}

std::size_t SSTree::VisibleCount() {
  std::size_t count = 0;
  while (!VisibleNode(count + 1).is_empty()) ++count;
  return count;
}

Node SSTree::VisibleNode(std::size_t number) {
  QModelIndex index = view().indexAt(QPoint(1, 1));
  for (; number > 1 && index.isValid(); --number) index = view().indexBelow(index);
  if (!index.isValid() || !view().viewport()->rect().intersects(view().visualRect(index)))
    return {};
  return in_hand(tree_model::node_at(index));
}

Node SSTree::HitTest(int x, int y) {
  return in_hand(view().node_at(QPoint(x, y)));
}

void SSTree::Drag(const Node& node) {
  view().drag(node.get());
}

tree_node& SSTree::insert(tree_node& parent, std::string_view key, std::string_view text,
                          std::string_view tag) {
  return view().model.insert(parent, key, text, tag);
}

void SSTree::remove(tree_node& node) {
  view().remove(node);
}

void SSTree::move(tree_node& node, tree_node& parent) {
  view().model.move(node, parent);
}

void SSTree::clear() {
  const bool drawn = !view().model.hidden();
  if (drawn) Redraw(false);
  view().top_when_drawn = nullptr;
  nodes_.clear();
  if (drawn) Redraw(true);
}

void SSTree::show_appearance(const tree_node& node) {
  view().model.show_change(node);
}

void SSTree::show_expansion(const tree_node& node) {
  if (!view().model.hidden()) view().setExpanded(view().model.index_of(node), node.expanded);
}

}  // namespace ta_vorlumine
