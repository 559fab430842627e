#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QTreeView>
#include <string>
#include <utility>
#include <vector>

#include "controls/tree/ss_tree.h"
#include "platform/form.h"
#include "platform/toolkit_peer.h"

namespace harness {

using ta_vorlumine::Node;
using ta_vorlumine::SSTree;
using lines = std::vector<std::string>;

/// A window with nothing but a tree, which tells its events.
class tree_window : public testing::Test {
 protected:
  tree_window() {
    window.body = platform::column({tree});
    tree.on_node_click = [this](const Node& node) { told.push_back("click " + node.Key()); };
    tree.on_node_open = [this](const Node& node) { told.push_back("open " + node.Key()); };
    tree.on_mouse_down = [this](int button, int shift, int, int) { tell("down", button, shift); };
    tree.on_mouse_move = [this](int buttons, int shift, int, int) { tell("move", buttons, shift); };
    window.load();
    tree.set_image_list(pictures);
    using reporting = QAbstractItemModelTester::FailureReportingMode;
    new QAbstractItemModelTester(view().model(), reporting::Fatal, view().model());
    add_nodes();
    view().window()->show();
    view().window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(view().window()));
    view().setFocus();
  }
  ~tree_window() override { view().window()->hide(); }

  void add_nodes() {
    tree.Nodes.Add("0", "root", "r");
    for (const char* key : {"a", "b", "c"}) tree.Nodes.AddChild("0", key, key);
    for (const char* key : {"a1", "a2"}) tree.Nodes.AddChild("a", key, key, "t");
    tree.Nodes.Item("0").Expanded(true);
    tree.Nodes.Item("a").Expanded(true);
  }
  void add_many() {
    for (int i = 100; i < 200; ++i) tree.Nodes.AddChild("b", std::to_string(i), "node");
    tree.Nodes.Item("b").Expanded(true);
  }
  void tell(const char* what, int button, int shift) {
    told.push_back(what + std::string(" ") + std::to_string(button) + " " + std::to_string(shift));
  }
  lines heard() { return std::exchange(told, {}); }

  Node item(const std::string& key) { return tree.Nodes.Item(key); }
  std::string selected() {
    const Node node = tree.SelectedItem();
    return node.is_empty() ? "" : node.Key();
  }
  QTreeView& view() { return platform::as<QTreeView>(tree.peer()); }
  QModelIndex index(const QString& text, const QModelIndex& parent = {}) {
    for (int row = 0; row < view().model()->rowCount(parent); ++row) {
      const QModelIndex child = view().model()->index(row, 0, parent);
      const QModelIndex found = child.data() == text ? child : index(text, child);
      if (found.isValid()) return found;
    }
    return {};
  }
  QPoint place(const QString& text) { return view().visualRect(index(text)).center(); }
  void click(QPoint where, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::mouseClick(view().viewport(), button, held, where);
  }
  void move(QPoint where, Qt::MouseButtons held) {
    QMouseEvent event(QEvent::MouseMove, where, view().viewport()->mapToGlobal(where), Qt::NoButton,
                      held, Qt::NoModifier);
    QApplication::sendEvent(view().viewport(), &event);
  }
  void key(Qt::Key code) { QTest::keyClick(&view(), code); }

  platform::Form window{"window", "", 6000, 4000};
  platform::ImageList pictures{{"shut", "close"}, {"wide", "open"}};
  SSTree tree{window, "SSTree1", "names"};
  lines told;
};

}  // namespace harness
