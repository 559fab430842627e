#include <QContextMenuEvent>
#include <QMenu>
#include <algorithm>
#include <utility>

#include "controls/tree/tree_view.h"
#include "platform/toolkit_peer.h"

namespace ta_vorlumine {
namespace {

using platform::to_toolkit;

node_command::key key_of(int toolkit_key) {
  switch (toolkit_key) {
    case Qt::Key_Insert:
      return node_command::key::insert;
    case Qt::Key_F2:
      return node_command::key::f2;
    case Qt::Key_Delete:
      return node_command::key::del;
    default:
      return node_command::key::none;
  }
}

/// The key as a menu names it behind a tab.
QString shown_key(node_command::key key) {
  switch (key) {
    case node_command::key::insert:
      return "\tInsert";
    case node_command::key::f2:
      return "\tF2";
    case node_command::key::del:
      return "\tDelete";
    default:
      return {};
  }
}

/// As a menu shows it: not all of a long text, and no letter of it underlined.
QString in_menu(const QMenu& menu, const tree_node& node) {
  const int widest = menu.fontMetrics().averageCharWidth() * 40;
  return menu.fontMetrics()
      .elidedText(tree_model::shown_text(node), Qt::ElideRight, widest)
      .replace('&', "&&");
}

}  // namespace

void SSTree::tree_view::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) return open_menu_of_current();
  if (node_at(event->pos()) && node_at(event->pos()) == selected()) open_menu(event->globalPos());
}

void SSTree::tree_view::open_menu_of_current() {
  const tree_node* node = current();
  if (!node) return;
  if (node != selected()) {
    select(node);
    raise_click(node);
  }
  if (!selected()) return;
  scrollTo(currentIndex());
  const QRect row = visualRect(currentIndex()).intersected(viewport()->rect());
  QMenu* menu = open_menu(viewport()->mapToGlobal(row.bottomLeft()));
  if (menu) menu->setActiveAction(menu->actions().front());
}

QMenu* SSTree::tree_view::open_menu(QPoint place) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setToolTipsVisible(true);
  add_commands(*menu);
  if (tree_.moving.move) add_moving(*menu, *selected());
  if (menu->isEmpty()) {
    delete menu;
    return nullptr;
  }
  menu->popup(place);
  return menu;
}

void SSTree::tree_view::add_commands(QMenu& menu) {
  for (const node_command& command : tree_.commands_) {
    platform::Toolbar& toolbar = *tree_.toolbar_;
    if (!toolbar.is_on(command.button)) continue;
    const bool has_key = command_of(command.pressed_by) == &command;
    const auto& button = toolbar.described(command.button);
    QAction& entry = *menu.addAction(
        QIcon(to_toolkit(toolbar.picture(command.button))),
        to_toolkit(button.caption) + (has_key ? shown_key(command.pressed_by) : QString()));
    entry.setToolTip(to_toolkit(button.description));
    connect(&entry, &QAction::triggered, this,
            [&toolbar, key = command.button] { toolbar.press(key); });
  }
}

void SSTree::tree_view::add_moving(QMenu& menu, const tree_node& node) {
  const Node hand = tree_.in_hand(&node);
  const tree_node* marked = model.marked();
  if (!menu.isEmpty()) menu.addSeparator();
  if (marked && marked != &node && tree_.moving.takes_nodes(hand)) {
    connect(menu.addAction("「" + in_menu(menu, *marked) + "」をここへ移動"), &QAction::triggered,
            this, [this, hand] { put_marked(hand); });
  }
  if (marked != &node && tree_.moving.may_go(hand)) {
    connect(menu.addAction("移動する項目にする"), &QAction::triggered, this,
            [this, key = node.key] { model.mark(tree_.nodes_.find(key)); });
  }
  if (marked) {
    connect(menu.addAction("移動をやめる\tEsc"), &QAction::triggered, this,
            [this] { model.mark(nullptr); });
  }
}

// The folder opens, so that the user sees where the node has gone. The move may have built the tree
// anew.
void SSTree::tree_view::put_marked(const Node& target) {
  tree_.raise([this, target] {
    const Node source = tree_.in_hand(model.marked());
    const auto [moved_key, target_key] = std::pair(source.Key(), target.Key());
    model.mark(nullptr);
    tree_.moving.move(source, target);
    const tree_node* moved = tree_.nodes_.find(moved_key);
    if (moved && moved->parent->key == target_key) expand(model.index_of(*moved->parent));
  });
}

const node_command* SSTree::tree_view::command_of(node_command::key key) {
  const auto found = std::find_if(
      tree_.commands_.begin(), tree_.commands_.end(), [&](const node_command& command) {
        return command.pressed_by == key && tree_.toolbar_->is_on(command.button);
      });
  const bool none = key == node_command::key::none || found == tree_.commands_.end();
  return none ? nullptr : &*found;
}

bool SSTree::tree_view::press_command_of(int toolkit_key) {
  const node_command* command = command_of(key_of(toolkit_key));
  if (command) tree_.toolbar_->press(command->button);
  return command != nullptr;
}

}  // namespace ta_vorlumine
