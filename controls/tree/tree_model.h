#pragma once

#include <QAbstractItemModel>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <map>
#include <string_view>
#include <utility>

#include "controls/tree/tree_nodes.h"
#include "platform/image_list.h"

class QWidget;

namespace ta_vorlumine {

/// Shows the nodes to the toolkit. While hidden it has no rows, so that nodes come and go freely;
/// else every change of the nodes that the view is to see goes through here.
class tree_model : public QAbstractItemModel {
 public:
  /// The colours of the nodes are kept readable on the ground of `view`.
  tree_model(tree_nodes& nodes, const QWidget& view) : nodes_(nodes), view_(view) {}

  [[nodiscard]] bool hidden() const { return hidden_; }
  void hide(bool hidden);
  void set_pictures(const platform::ImageList& pictures);

  /// Marks a node to be moved, none if it is null. The mark stays with the node's key.
  void mark(const tree_node* node);
  [[nodiscard]] const tree_node* marked() const { return nodes_.find(marked_key_); }

  /// The text as it stands in one row.
  [[nodiscard]] static QString shown_text(const tree_node& node);
  [[nodiscard]] QModelIndex index_of(const tree_node& node) const;
  [[nodiscard]] static tree_node* node_at(const QModelIndex& index);  ///< of a valid index only

  tree_node& insert(tree_node& parent, std::string_view key, std::string_view text,
                    std::string_view tag);
  void remove(tree_node& node);
  void move(tree_node& node, tree_node& parent);
  void show_change(const tree_node& node);

  [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
  [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QVariant headerData(int, Qt::Orientation, int) const override { return {}; }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  [[nodiscard]] QModelIndex at(std::size_t row, const tree_node& node) const;
  [[nodiscard]] const tree_node& family(const QModelIndex& parent) const;
  [[nodiscard]] QFont font(const tree_node& node) const;
  [[nodiscard]] QIcon picture(const std::string& key) const;

  tree_nodes& nodes_;
  const QWidget& view_;
  const platform::ImageList* pictures_ = nullptr;
  mutable QHash<QString, QIcon> icons_;
  mutable std::map<std::pair<int, bool>, QFont> fonts_;  // by size and weight
  std::string marked_key_;
  bool hidden_ = false;
};

}  // namespace ta_vorlumine
