#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "tree_window.h"

namespace {

using harness::lines;
using ss_tree_search = harness::tree_window;
using ta_vorlumine::Node;

TEST_F(ss_tree_search, finds_any_part_of_a_text_by_typing) {
  for (const char* title : {"ｶﾞﾗｽの皿", "ＡＢＣ商会", "Abc", "二\n行", "ァヶ"})
    tree.Nodes.AddChild("a2", title, title);
  const auto box = [this] { return view().findChild<QLineEdit*>("search"); };
  const auto found = [&] { return box()->accessibleDescription().toStdString() + selected(); };
  const struct {
    const char* typed;
    const char* found;
  } searches[] = {{"がら", "1 / 1ｶﾞﾗｽの皿"},     {"ガラスノ", "1 / 1ｶﾞﾗｽの皿"},
                  {"ａｂｃ", "1 / 2ＡＢＣ商会"}, {"abc商", "1 / 1ＡＢＣ商会"},
                  {"二 行", "1 / 1二\n行"},      {"ぁゖ", "1 / 1ァヶ"},
                  {"xyz", "見つかりませんa"},    {"", "a"}};
  EXPECT_FALSE(box()->isVisible());
  key(Qt::Key_Z);
  EXPECT_EQ(box()->accessibleName(), "検索");
  EXPECT_EQ(box()->parentWidget()->findChild<QLabel*>()->text(), "検索");
  box()->insert("a\nb");
  EXPECT_EQ(box()->text().indexOf('\n'), -1);
  QTest::mouseClick(view().findChild<QToolButton*>("search_close"), Qt::LeftButton);
  EXPECT_FALSE(box()->isVisible());
  key(Qt::Key_Z);
  EXPECT_LE(view().viewport()->geometry().bottom(), box()->parentWidget()->y());
  view().setFocus();
  key(Qt::Key_Tab);
  EXPECT_FALSE(box()->hasFocus()) << "it is typed into from the tree";
  for (const auto& search : searches) {
    item("a").Expanded(false);
    box()->setText(search.typed);
    EXPECT_EQ(found(), search.found);
  }
  heard();
  box()->setText("b");
  EXPECT_EQ(found(), "1 / 3ＡＢＣ商会");
  item("a2").Text("B");
  for (const Qt::Key step : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Up})
    QTest::keyClick(box(), step);
  EXPECT_EQ(found(), "3 / 4Abc");
  for (int back = 0; back < 3; ++back) QTest::keyClick(box(), Qt::Key_Enter, Qt::ShiftModifier);
  EXPECT_EQ(found(), "4 / 4b");
  EXPECT_EQ(heard().back(), "click b");
  EXPECT_EQ(box()->parentWidget()->findChildren<QLabel*>().last()->text(), "4 / 4");
  const auto press = [&](const char* button) {
    QTest::mouseClick(view().findChild<QToolButton*>(button), Qt::LeftButton);
    return found();
  };
  EXPECT_EQ(press("search_previous"), "3 / 4Abc");
  EXPECT_EQ(press("search_next"), "4 / 4b");
  QTest::keyClick(box(), Qt::Key_Escape);
  EXPECT_TRUE(view().hasFocus() && !box()->isVisible());
  EXPECT_EQ(box()->accessibleDescription(), "") << "told of nodes that may have gone since";
  for (const QToolButton* button : view().findChildren<QToolButton*>())
    EXPECT_EQ(button->toolTip(), button->accessibleName());
}

TEST_F(ss_tree_search, keeps_what_is_typed_into_its_search_while_a_choice_takes_long) {
  tree.on_node_click = [](const Node&) {
    QObject* const box = QApplication::focusWidget();
    for (const auto& [code, text] : {std::pair(Qt::Key_2, "2"), {Qt::Key_Escape, "\x1b"}})
      QCoreApplication::postEvent(box, new QKeyEvent(QEvent::KeyPress, code, {}, text));
    QTest::qSleep(600);
  };
  key(Qt::Key_Z);  // which no node has
  QLineEdit& box = *view().findChild<QLineEdit*>("search");
  box.clear();
  QTest::keyClick(&box, Qt::Key_A);
  tree.on_node_click = {};
  QCoreApplication::processEvents();
  EXPECT_EQ(box.text().toStdString() + selected(), "a2a2");
  EXPECT_TRUE(box.isVisible()) << "Esc was meant for what was shown before";
}

}  // namespace
