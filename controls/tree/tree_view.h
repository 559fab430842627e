#pragma once

#include <QBasicTimer>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QTreeView>
#include <string>

#include "controls/tree/ss_tree.h"
#include "controls/tree/tree_model.h"
#include "controls/tree/tree_search.h"

class QMenu;

namespace ta_vorlumine {

/// The toolkit's view of the nodes. Raises the tree's events.
class SSTree::tree_view : public QTreeView {
 public:
  explicit tree_view(SSTree& tree);

  /// While off the view is empty.
  void redraw(bool on);
  void clear();
  void remove(tree_node& node);
  void move(tree_node& node, tree_node& parent);
  [[nodiscard]] const tree_node* selected() const;
  void select(const tree_node* node);  ///< raises no event
  void move_keyboard(const tree_node& node);
  /// Scrolls there, or will when next drawn.
  void show_on_top(const tree_node& node);
  [[nodiscard]] const tree_node* node_at(QPoint place) const;
  [[nodiscard]] const tree_node* visible(std::size_t number) const;
  /// Returns once the drag has ended and its drop, if any, was raised.
  void drag(const tree_node& node);

  tree_model model;

  /// What is typed on the tree opens the search box.
  void keyboardSearch(const QString& typed) override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  void inputMethodEvent(QInputMethodEvent* event) override;
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void selectionChanged(const QItemSelection& on, const QItemSelection& off) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
      const QModelIndex& index, const QEvent* event) const override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void updateGeometries() override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] bool on_arrow(QPoint place) const;
  void show_expansions();
  void scroll_sideways(bool left);
  void step_sideways(const QModelIndex& from, bool left);
  void close_over_current(const QModelIndex& folder);
  void raise_click(const tree_node* node);
  void raise_open(const tree_node* node);
  void raise_drag_over(QPoint place);
  void scroll_at_edge();
  void open_what_is_rested_on();
  void follow_nodes();
  void set_up_search();
  /// Where the text of the row ends, in the viewport.
  [[nodiscard]] int right_end(const QModelIndex& index) const;
  void fit_column();
  void open_menu_of_current();
  /// Null if there is nothing to choose.
  QMenu* open_menu(QPoint place);
  void add_commands(QMenu& menu);
  void add_moving(QMenu& menu, const tree_node& node);
  void put_marked(const Node& target);
  [[nodiscard]] const node_command* command_of(node_command::key key);
  bool press_command_of(int toolkit_key);
  [[nodiscard]] const tree_node* current() const;

  SSTree& tree_;
  bool quiet_ = false;  // selections are not raised: the press that makes them raises its own click
  QPoint pressed_;
  bool press_pending_ = false;  // a button is down and the pointer has not yet left its place
  bool dropped_ = false;
  QPoint drag_place_;
  QBasicTimer drag_beat_;
  int beats_at_edge_ = 0;
  int beats_at_rest_ = 0;
  QPersistentModelIndex rested_on_;
  int widest_ = 0;  // of the rows that have come into view
  bool widest_is_outdated_ = false;
  tree_search search_;
  std::string current_key_;  // while drawing is off
  std::string top_key_;      // of what will be on top when drawn
};

}  // namespace ta_vorlumine
