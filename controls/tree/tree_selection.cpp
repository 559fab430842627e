#include <QScopedValueRollback>

#include "controls/tree/tree_view.h"

namespace ta_vorlumine {
namespace {

bool lies_below(QModelIndex index, const QModelIndex& folder) {
  while (index.isValid() && index != folder) index = index.parent();
  return index.isValid();
}

}  // namespace

const tree_node* SSTree::tree_view::selected() const {
  const QModelIndexList selected = selectionModel()->selectedIndexes();
  return selected.isEmpty() ? nullptr : tree_model::node_at(selected.constFirst());
}

void SSTree::tree_view::select(const tree_node* node) {
  const QScopedValueRollback quiet(quiet_, true);
  if (node) {
    setCurrentIndex(model.index_of(*node));
  } else {
    clearSelection();
  }
}

void SSTree::tree_view::move_keyboard(const tree_node& node) {
  const QScopedValueRollback quiet(quiet_, true);
  clearSelection();
  selectionModel()->setCurrentIndex(model.index_of(node), QItemSelectionModel::NoUpdate);
}

// The toolkit would select a neighbour of what goes, which nobody has chosen.
void SSTree::tree_view::remove(tree_node& node) {
  const tree_node* chosen = selected();
  const std::string key = chosen ? chosen->key : std::string();
  const QScopedValueRollback quiet(quiet_, true);
  model.remove(node);
  if (!tree_.nodes_.find(key)) clearSelection();
}

// A selected node is always to be seen: a command on one that is hidden would hit what nobody
// means.
void SSTree::tree_view::move(tree_node& node, tree_node& parent) {
  model.move(node, parent);
  const tree_node* chosen = selected();
  if (!chosen) return;
  for (QModelIndex above = model.index_of(*chosen).parent(); above.isValid();
       above = above.parent()) {
    expand(above);
  }
}

// The same when a folder closes: it takes the place of the node that it hides.
void SSTree::tree_view::close_over_current(const QModelIndex& folder) {
  tree_node* const node = tree_model::node_at(folder);
  node->expanded = false;
  widest_is_outdated_ = true;
  const tree_node* chosen = selected();
  if (chosen && chosen != node && lies_below(model.index_of(*chosen), folder)) {
    select(node);
    raise_click(node);
  } else if (lies_below(currentIndex(), folder)) {
    selectionModel()->setCurrentIndex(folder, QItemSelectionModel::NoUpdate);
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

// With Ctrl held, or at a click below the last node, the toolkit would take the selection away,
// while the commands still mean the node.
QItemSelectionModel::SelectionFlags SSTree::tree_view::selectionCommand(const QModelIndex& index,
                                                                        const QEvent* event) const {
  if (!index.isValid()) return QItemSelectionModel::NoUpdate;
  const auto command = QTreeView::selectionCommand(index, event);
  return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate : command;
}

}  // namespace ta_vorlumine
