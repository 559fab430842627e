#include "controls/tree/tree_model.h"

#include <QFont>
#include <QIconEngine>
#include <QPalette>
#include <QWidget>
#include <utility>

#include "platform/contrast.h"
#include "platform/fonts.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {

using platform::to_toolkit;

namespace {

/// Keeps its colours on the ground of a selected row, where the toolkit would mix them with that.
class unmixed : public QIconEngine {
 public:
  explicit unmixed(QIcon icon) : icon_(std::move(icon)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    icon_.paint(painter, rect, Qt::AlignCenter, plain(mode), state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return icon_.pixmap(size, plain(mode), state);
  }
  [[nodiscard]] QIconEngine* clone() const override { return new unmixed(*this); }

 private:
  static QIcon::Mode plain(QIcon::Mode mode) {
    return mode == QIcon::Selected ? QIcon::Normal : mode;
  }
  QIcon icon_;
};

}  // namespace

void tree_model::hide(bool hidden) {
  if (hidden_ == hidden) return;
  beginResetModel();
  hidden_ = hidden;
  endResetModel();
}

void tree_model::set_pictures(const platform::ImageList& pictures) {
  pictures_ = &pictures;
  icons_.clear();
}

void tree_model::mark(const tree_node* node) {
  const tree_node* before = marked();
  marked_key_ = node ? node->key : std::string();
  if (before) show_change(*before);
  if (node) show_change(*node);
}

QString tree_model::shown_text(const tree_node& node) {
  return to_toolkit(node.text).replace('\n', ' ');
}

QModelIndex tree_model::index_of(const tree_node& node) const {
  return hidden_ || !node.parent ? QModelIndex() : at(node.row, node);
}

tree_node* tree_model::node_at(const QModelIndex& index) {
  return static_cast<tree_node*>(index.internalPointer());
}

tree_node& tree_model::insert(tree_node& parent, std::string_view key, std::string_view text,
                              std::string_view tag) {
  // A taken key must be refused before the view is told of a row to come.
  if (hidden_ || nodes_.find(key)) return nodes_.add(parent, key, text, tag);
  const int row = static_cast<int>(parent.children.size());
  beginInsertRows(index_of(parent), row, row);
  tree_node& added = nodes_.add(parent, key, text, tag);
  endInsertRows();
  return added;
}

void tree_model::remove(tree_node& node) {
  if (hidden_) return nodes_.remove(node);
  const int row = static_cast<int>(node.row);
  beginRemoveRows(index_of(*node.parent), row, row);
  nodes_.remove(node);
  endRemoveRows();
}

void tree_model::move(tree_node& node, tree_node& parent) {
  const bool stays = node.parent == &parent && node.row + 1 == parent.children.size();
  if (stays) return;
  if (hidden_) return nodes_.move(node, parent);
  const int row = static_cast<int>(node.row);
  beginMoveRows(index_of(*node.parent), row, row, index_of(parent),
                static_cast<int>(parent.children.size()));
  nodes_.move(node, parent);
  endMoveRows();
}

void tree_model::show_change(const tree_node& node) {
  if (hidden_) return;
  const QModelIndex index = index_of(node);
  emit dataChanged(index, index);
}

QModelIndex tree_model::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  const auto place = static_cast<std::size_t>(row);
  return at(place, *family(parent).children[place]);
}

QModelIndex tree_model::parent(const QModelIndex& index) const {
  return index.isValid() ? index_of(*node_at(index)->parent) : QModelIndex();
}

int tree_model::rowCount(const QModelIndex& parent) const {
  return hidden_ ? 0 : static_cast<int>(family(parent).children.size());
}

int tree_model::columnCount(const QModelIndex&) const {
  return 1;
}

// A node without children says so: keyboard and screen reader would else take it for an open one
// that can be closed.
Qt::ItemFlags tree_model::flags(const QModelIndex& index) const {
  const Qt::ItemFlags usual = QAbstractItemModel::flags(index);
  const bool leaf = index.isValid() && node_at(index)->children.empty();
  return leaf ? usual | Qt::ItemNeverHasChildren : usual;
}

QVariant tree_model::data(const QModelIndex& index, int role) const {
  const tree_node& node = *node_at(index);
  switch (role) {
    case Qt::DisplayRole:
      return shown_text(node);
    case Qt::ForegroundRole:
      return platform::readable_on(view_.palette().color(QPalette::Base),
                                   QColor(node.colour.red, node.colour.green, node.colour.blue));
    case Qt::FontRole:
      return font(node);
    case Qt::AccessibleDescriptionRole:
      return to_toolkit(node.kind) + (&node == marked() ? "、移動する項目" : "");
    case Qt::DecorationRole:
      return picture(node.expanded && !node.expanded_image.empty() ? node.expanded_image
                                                                   : node.image);
    default:
      return {};
  }
}

QModelIndex tree_model::at(std::size_t row, const tree_node& node) const {
  return createIndex(static_cast<int>(row), 0, &node);
}

const tree_node& tree_model::family(const QModelIndex& parent) const {
  return parent.isValid() ? *node_at(parent) : nodes_.top();
}

// The sizes of the nodes were chosen for windows of the usual font. A font that is made anew for
// each row would be looked up anew.
QFont tree_model::font(const tree_node& node) const {
  const auto [place, is_new] = fonts_.try_emplace({node.font_size, node.bold});
  QFont& font = place->second;
  if (is_new) {
    font = platform::window_font();
    font.setPointSizeF(node.font_size * platform::font_scale());
    font.setBold(node.bold);
  }
  return font;
}

QIcon tree_model::picture(const std::string& key) const {
  if (key.empty() || !pictures_) return {};
  const QString name = to_toolkit(key);
  const auto found = icons_.constFind(name);
  if (found != icons_.constEnd()) return *found;
  return *icons_.insert(name, QIcon(new unmixed(QIcon(to_toolkit(pictures_->path(key))))));
}

}  // namespace ta_vorlumine
