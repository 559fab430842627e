#include <QAccessible>
#include <QFont>
#include <QHelpEvent>
#include <QIcon>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>
#include <stdexcept>

#include "ink.h"
#include "platform/hint.h"
#include "tree_window.h"

namespace {

using harness::lines;
using ss_tree = harness::tree_window;
using ta_vorlumine::Node;

TEST_F(ss_tree, keeps_nodes_by_key_and_in_the_order_of_adding_and_leads_from_one_to_another) {
  EXPECT_EQ(tree.Nodes.Count(), 6U);
  EXPECT_THROW(tree.Nodes.AddChild("a", "b", "taken"), std::runtime_error);
  EXPECT_EQ(tree.Nodes.Item(5).Key(), "a1");
  EXPECT_EQ(item("a1").Position(), 5U);
  EXPECT_EQ(item("a1").Text() + item("a1").Tag() + item("0").Tag(), "a1tr");
  EXPECT_THROW(static_cast<void>(tree.Nodes.Item(0)), std::runtime_error);
  EXPECT_THROW(static_cast<void>(tree.Nodes.Item(7)), std::runtime_error);
  EXPECT_THROW(tree.Nodes.AddChild("b", "a1", "taken"), std::runtime_error);
  EXPECT_THROW(tree.Nodes.AddChild("x", "new", "of none"), std::runtime_error);
  EXPECT_EQ(tree.Nodes.Count(), 6U);
  EXPECT_EQ(view().model()->rowCount(index("b")), 0);

  const Node a = item("a");
  EXPECT_EQ(a.parent().Key() + a.Child().Key() + a.Next().Key(), "0a1b");
  EXPECT_EQ(item("b").Previous().Key() + a.LastSibling().Key() + item("a1").Root().Key(), "ac0");
  EXPECT_EQ(a.Children(), 2U);
  EXPECT_TRUE(a.Previous().is_empty() && item("c").Next().is_empty());
  EXPECT_TRUE(item("0").parent().is_empty() && item("b").Child().is_empty());
  const Node child = item("a2");
  tree.Nodes.Remove("a");
  EXPECT_EQ(tree.Nodes.Count(), 3U);
  EXPECT_FALSE(tree.Nodes.Has("a2"));
  EXPECT_THROW((void)child.Key(), std::runtime_error);
  EXPECT_THROW((void)Node().Key(), std::runtime_error);
  EXPECT_EQ(item("c").Position(), 3U);
  tree.Nodes.Remove(2);
  EXPECT_EQ(tree.Nodes.Item(2).Key(), "c");
  EXPECT_FALSE(index("b").isValid());
  tree.Nodes.Clear();
  EXPECT_EQ(tree.Nodes.Count(), 0U);
  EXPECT_EQ(view().model()->rowCount(), 0);
}

TEST_F(ss_tree, moves_a_node_with_all_below_it_to_the_last_place) {
  const auto children = [this](const QString& of) {
    QString texts;
    for (int row = 0; row < view().model()->rowCount(index(of)); ++row)
      texts += view().model()->index(row, 0, index(of)).data().toString();
    return texts;
  };
  tree.SelectedItem(item("a2"));
  tree.Nodes.AddChild("c", "c1", "c1");
  item("a").parent(item("c"));
  EXPECT_EQ(children("root") + children("c") + children("a"), "bcc1aa1a2");
  EXPECT_EQ(item("c1").Next().Key() + item("b").Next().Key(), "ac");
  EXPECT_TRUE(item("a").Next().is_empty() && item("b").Previous().is_empty());
  item("c1").parent(item("c"));
  item("c1").parent(item("c"));  // is the last one already
  EXPECT_EQ(children("c"), "ac1");
  EXPECT_THROW(item("c").parent(item("a2")), std::runtime_error);
  EXPECT_THROW(item("c").parent(item("c")), std::runtime_error);
  EXPECT_EQ(selected(), "a2");
  EXPECT_EQ(item("a").Position(), 2U) << "the order of adding stays";
}

TEST_F(ss_tree, shows_nodes_as_they_are_told) {
  const Node a = item("a");
  const QSignalSpy changes(view().model(), &QAbstractItemModel::dataChanged);
  a.Text("two\nlines");
  a.Font(true, 17);
  a.ForeColor(ta_vorlumine::RGB(1, 2, 3));
  a.Image("shut");
  a.ExpandedImage("wide");
  EXPECT_EQ(changes.count(), 5) << "each is drawn";
  const QModelIndex shown = view().model()->index(0, 0, index("root"));
  EXPECT_EQ(shown.data(), "two lines");
  EXPECT_EQ(a.Text(), "two\nlines");
  EXPECT_TRUE(shown.data(Qt::FontRole).value<QFont>().bold());
  EXPECT_EQ(shown.data(Qt::FontRole).value<QFont>().pointSize(), 17);
  EXPECT_EQ(shown.data(Qt::ForegroundRole).value<QColor>(), QColor(1, 2, 3));
  const auto is_shown = [&](const char* picture) {
    const auto image = [](const QIcon& icon) { return icon.pixmap(16).toImage(); };
    return image(shown.data(Qt::DecorationRole).value<QIcon>()) ==
           image(QIcon(QString(":/pictures/%1.svg").arg(picture)));
  };
  EXPECT_TRUE(is_shown("open"));
  const auto icon = shown.data(Qt::DecorationRole).value<QIcon>();
  EXPECT_EQ(icon.pixmap(16, QIcon::Selected).toImage(), icon.pixmap(16).toImage());
  const QRect row = view().visualRect(shown);
  const int end_of_icon = row.left() + view().iconSize().width();
  EXPECT_TRUE(harness::has_ink(*view().viewport(), row & QRect(0, 0, end_of_icon, 1000)));
  EXPECT_TRUE(harness::has_ink(*view().viewport(), row & QRect(end_of_icon + 4, 0, 20, 1000)));
  view().collapse(shown);
  EXPECT_FALSE(a.Expanded());
  EXPECT_TRUE(is_shown("close"));
  a.Expanded(true);
  EXPECT_TRUE(view().isExpanded(shown));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&view())->text(QAccessible::Name), "names");
}

TEST_F(ss_tree, tells_what_the_user_chooses_and_nothing_else) {
  tree.SelectedItem(item("b"));
  EXPECT_EQ(selected(), "b");
  tree.SelectedItem(Node());
  EXPECT_EQ(selected(), "");
  EXPECT_EQ(heard(), lines{});
  click(place("b"));
  click(place("b"), Qt::RightButton, Qt::ControlModifier);
  EXPECT_EQ(heard(), (lines{"down 1 0", "click b", "down 2 2", "click b"}));
  key(Qt::Key_Down);
  EXPECT_EQ(selected(), "c");
  key(Qt::Key_Return);
  key(Qt::Key_Enter);
  tree.SelectedItem(Node());
  key(Qt::Key_Space);  // the keyboard's place is chosen again
  EXPECT_EQ(selected(), "c");
  EXPECT_EQ(heard(), (lines{"click c", "open c", "open c", "click c"}));
  QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, place("a1"));
  QTest::mouseDClick(view().viewport(), Qt::RightButton, {}, place("a1"));
  EXPECT_EQ(heard(), (lines{"down 1 0", "click a1", "open a1"}));
  const QPoint foot(20, view().viewport()->height() - 2);
  click(foot);
  EXPECT_EQ(heard(), (lines{"down 1 0"}));
  QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, foot);
  EXPECT_EQ(heard(), lines{});
  EXPECT_EQ(selected(), "a1") << "there is no node to choose instead";
  const QRect row = view().visualRect(index("a"));
  click(QPoint(row.left() - view().indentation() / 2, row.center().y()));
  EXPECT_FALSE(item("a").Expanded());
  EXPECT_EQ(heard(), lines{"click a"});
  tree.SelectedItem(item("b"));
  tree.Nodes.Remove("a");
  EXPECT_EQ(selected(), "b");
  tree.Nodes.Remove("b");
  EXPECT_EQ(selected(), "") << "no neighbour is chosen in its place";
  EXPECT_EQ(heard(), lines{});
}

TEST_F(ss_tree, keeps_in_sight_what_is_chosen) {
  view().expandAll();
  click(place("a1"));
  click(place("a1"), Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(selected(), "a1");
  heard();
  key(Qt::Key_Left);  // of a leaf, there is nothing to close
  key(Qt::Key_Right);
  key(Qt::Key_Left);
  key(Qt::Key_Left);
  EXPECT_FALSE(item("a").Expanded());
  key(Qt::Key_Right);
  EXPECT_EQ(heard(), (lines{"click a", "click a1", "click a"}));
  click(place("a2"));
  view().collapse(index("root"));
  EXPECT_EQ(selected() + heard().back(), "0click 0");
  view().expandAll();
  click(place("b"));
  item("c").Expanded(false);
  item("a").Expanded(false);
  EXPECT_EQ(selected(), "b") << "it lies elsewhere";
  item("b").parent(item("c"));
  EXPECT_TRUE(item("c").Expanded()) << "the folder opens that the chosen node is put into";
}

TEST_F(ss_tree, scrolls_sideways_to_what_is_too_long_for_it_and_hints_at_it) {
  const std::string text(300, 'x');
  const auto hint_at = [this](const QString& node) {
    QHelpEvent event(QEvent::ToolTip, place(node), view().viewport()->mapToGlobal(place(node)));
    QApplication::sendEvent(view().viewport(), &event);
    return QToolTip::text();
  };
  const QScrollBar& sideways = *view().horizontalScrollBar();
  const auto room = [&] {
    view().grab();
    QApplication::processEvents();
    return sideways.maximum();
  };
  add_many();
  tree.Nodes.AddChild("199", "long", text).parent().Expanded(true);
  EXPECT_EQ(room(), 0) << "only rows in view are measured";
  tree.TopNode(item("long"));
  EXPECT_GT(sideways.maximum(), 0);
  const int widest = room();
  tree.TopNode(item("0"));
  EXPECT_EQ(room(), widest) << "scrolling up and down moves nothing sideways";
  tree.TopNode(item("long"));
  EXPECT_EQ(hint_at("199"), "");
  EXPECT_EQ(hint_at(text.c_str()), platform::hint(text.c_str()));
  tree.SelectedItem(item("199"));
  view().horizontalScrollBar()->setValue(8);
  key(Qt::Key_Up);
  EXPECT_EQ(sideways.value(), 8) << "its beginning is in sight";
  QTest::keyClick(&view(), Qt::Key_Right, Qt::ControlModifier);
  EXPECT_GT(sideways.value(), 100);
  key(Qt::Key_Down);
  EXPECT_GT(view().visualRect(view().currentIndex()).left(), 0);
  item("199").Expanded(false);
  EXPECT_EQ(room(), 0);
  item("199").Expanded(true);
  EXPECT_EQ(room(), widest);
  tree.Nodes.Remove("long");
  EXPECT_EQ(room(), 0);
}

TEST_F(ss_tree, tells_a_move_once_with_a_button_held_and_away_from_the_press) {
  const QPoint from = place("b");
  const QPoint off = from + QPoint(2 * QApplication::startDragDistance(), 0);
  move(off, Qt::LeftButton);
  EXPECT_EQ(heard(), lines{}) << "the press was elsewhere";
  QTest::mousePress(view().viewport(), Qt::LeftButton, {}, from);
  move(from + QPoint(1, 0), Qt::LeftButton);
  move(off, Qt::NoButton);
  EXPECT_EQ(heard(), (lines{"down 1 0", "click b"}));
  move(off, Qt::LeftButton);
  move(off + off, Qt::LeftButton);
  EXPECT_EQ(heard(), (lines{"move 1 0"}));
  EXPECT_EQ(selected(), "b") << "what the pointer passes is not chosen";
  const QImage before = view().viewport()->grab().toImage();
  tree.DropHighlight(item("c"));
  EXPECT_EQ(tree.DropHighlight().Key(), "c");
  const QImage framed = view().viewport()->grab().toImage();
  const QRect target = view().visualRect(index("c"));
  EXPECT_NE(framed.copy(target), before.copy(target));
  const int hue = view().palette().color(QPalette::Highlight).hue();
  EXPECT_NEAR(framed.pixelColor(target.center().x(), target.top() + 1).hue(), hue, 15);
  EXPECT_GT(framed.pixelColor(target.bottomRight() - QPoint(5, 5)).lightness(), 180) << "a shade";
  EXPECT_EQ(framed.pixelColor(view().visualRect(index("a")).topRight() + QPoint(-5, 1)),
            view().palette().color(QPalette::Base));
  tree.Drag(item("b"));
  EXPECT_TRUE(tree.DropHighlight().is_empty()) << "a drag that ends without a drop clears it";
  EXPECT_EQ(view().viewport()->grab().toImage(), before);
}

TEST_F(ss_tree, scrolls_to_the_node_that_is_to_be_on_top) {
  add_many();
  tree.TopNode(item("150"));
  EXPECT_EQ(tree.TopNode().Key() + tree.VisibleNode(2).Key(), "150151");
  const std::size_t shown = tree.VisibleCount();
  EXPECT_GT(shown, 3U);
  EXPECT_LT(shown, 40U);
  EXPECT_FALSE(tree.VisibleNode(shown).is_empty());
  EXPECT_TRUE(tree.VisibleNode(shown + 1).is_empty());
  const QPoint top = view().visualRect(view().indexAt(QPoint(1, 1))).center();
  EXPECT_EQ(tree.HitTest(top.x(), top.y()).Key(), "150");
  EXPECT_TRUE(tree.HitTest(top.x(), -1000).is_empty());
}

TEST_F(ss_tree, shows_nothing_while_it_is_filled_and_keeps_the_keyboards_place) {
  click(place("a2"));
  EXPECT_EQ(heard().back(), "click a2");
  tree.Redraw(false);
  EXPECT_EQ(view().model()->rowCount(), 0);
  EXPECT_EQ(selected(), "");
  tree.Nodes.Clear();
  add_nodes();
  add_many();
  tree.TopNode(item("150"));
  tree.Redraw(true);
  EXPECT_EQ(tree.TopNode().Key(), "150");
  EXPECT_TRUE(view().isExpanded(index("a")) && view().isExpanded(index("b")));
  EXPECT_EQ(selected(), "");
  EXPECT_EQ(view().currentIndex().data(), "a2");
  EXPECT_EQ(heard(), lines{});
  key(Qt::Key_Up);
  EXPECT_TRUE(view().viewport()->rect().contains(place("a1"))) << "it is in sight again";
  tree.SelectedItem(Node());
  item("a").Expanded(false);
  tree.Redraw(false);
  tree.Redraw(true);
  EXPECT_FALSE(view().isExpanded(index("a")));
  EXPECT_TRUE(view().isExpanded(index("b")));
}

}  // namespace
