#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>
#include <QTreeView>
#include <array>

#include "dragging.h"
#include "harness.h"
#include "walker.h"

namespace harness {
namespace {

QString quoted(const std::string& text) {
  return "\"" + QString::fromStdString(text) + "\"";
}

void compose(QWidget& target, const std::string& committed, const std::string& unfinished) {
  QInputMethodEvent event(QString::fromStdString(unfinished), {});
  event.setCommitString(QString::fromStdString(committed));
  QApplication::sendEvent(&target, &event);
}

void collect_nodes(const QAbstractItemModel& model, const QModelIndex& parent,
                   std::vector<QModelIndex>& nodes) {
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex node = model.index(row, 0, parent);
    nodes.push_back(node);
    collect_nodes(model, node, nodes);
  }
}

QTreeView& tree_of(QWidget& top) {
  return *top.findChild<QTreeView*>("SSTree1");
}

std::vector<QModelIndex> nodes_of(QWidget& top) {
  std::vector<QModelIndex> nodes;
  collect_nodes(*tree_of(top).model(), {}, nodes);
  return nodes;
}

template <class Widget>
std::vector<Widget*> usable(QWidget& top) {
  std::vector<Widget*> found;
  for (Widget* widget : top.findChildren<Widget*>()) {
    if (widget->isVisible() && widget->isEnabled() && !widget->objectName().startsWith("qt_"))
      found.push_back(widget);
  }
  return found;
}

}  // namespace

std::string walker::any_text(bool of_grid) {
  static const std::array<std::string, 10> odd = {"O'Brien''s",
                                                  "%10",
                                                  "<title> %01",
                                                  "😀漢字",
                                                  std::string(101, 'x'),
                                                  std::string(97, 'y') + "'😀z",
                                                  "１２３",
                                                  "一行\n二行",
                                                  "",
                                                  " "};
  static const std::array<std::string, 9> exact = {
      "2005/01/31", "2005/02/30", "1999/12/31", "2005/1/1", "12", "-3.5", "１２３", "1e400", "007"};
  if (of_grid && below(2) == 0) return exact[below(exact.size())];
  if (below(3) > 0) return "語" + std::to_string(below(300));
  return odd[below(odd.size())];
}

void walker::press_named(const std::string& name) {
  if (name == "exit") type("Text1", "出口" + std::to_string(done_) + "/" + std::to_string(seed_));
  note("leaves by " + name);
  press(name);
}

// What leads out of a window is pressed less often than the rest.
void walker::press_any(QWidget& top) {
  std::vector<choice> choices;
  for (QAbstractButton* button : usable<QAbstractButton>(top)) {
    const QString name = button->objectName();
    const bool leads_out = name == "close" || name == "exit";
    const bool opens_files = button->text() == "...";
    choices.emplace_back(leads_out || opens_files ? 1 : 6, [this, button, name] {
      note("presses " + name.toStdString());
      button->click();
    });
  }
  if (!choices.empty()) pick(choices);
}

void walker::type_any(QWidget& top) {
  std::vector<QWidget*> boxes;
  for (QWidget* box : usable<QLineEdit>(top)) boxes.push_back(box);
  for (QWidget* box : usable<QPlainTextEdit>(top)) boxes.push_back(box);
  if (boxes.empty()) return press_any(top);
  QWidget& box = *boxes[below(static_cast<int>(boxes.size()))];
  const std::string text = any_text(false);
  note("types " + quoted(text).toStdString() + " into " + box.objectName().toStdString());
  if (below(8) == 0) return compose(box, "", text);
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&box, Qt::Key_Delete);
  compose(box, text, "");
}

void walker::choose_any(QWidget& top) {
  const auto combos = usable<QComboBox>(top);
  if (combos.empty()) return press_any(top);
  QComboBox& combo = *combos[below(static_cast<int>(combos.size()))];
  combo.setCurrentIndex(below(combo.count()));
  note("chooses " + combo.currentText().toStdString());
}

// A cell is filled as a user does, its edit taken by a key, or left open for what comes next.
void walker::use_grid(QWidget& top) {
  auto& grid = *top.findChild<QTableView*>("fg");
  const int rows = grid.model()->rowCount();
  if (rows == 0 || below(10) == 0) {
    note("clicks somewhere into the grid");
    const QPoint place(below(grid.viewport()->width()), below(grid.viewport()->height()));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
    return;
  }
  const QModelIndex cell =
      grid.model()->index(below(rows), 5 + below(grid.model()->columnCount() - 5));
  const bool is_list = cell.column() % 2 == 0;
  const std::string text = is_list ? std::to_string(1 + below(3)) : any_text(true);
  note("fills row " + std::to_string(cell.row() + 1) + ", column " + std::to_string(cell.column()) +
       " with " + quoted(text).toStdString());
  grid.setFocus();
  grid.setCurrentIndex(cell);
  if (QApplication::activeModalWidget() != &top) return;
  if (is_list)
    QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(text));
  else if (QWidget* focused = QApplication::focusWidget())
    compose(*focused, text, below(8) == 0 ? "み" : "");
  constexpr std::array ends = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape};
  if (below(5) > 0) key(ends[below(ends.size())]);
}

void walker::click_any_node(QWidget& top, bool twice) {
  const auto nodes = nodes_of(top);
  const QModelIndex node = nodes[below(static_cast<int>(nodes.size()))];
  QTreeView& tree = tree_of(top);
  note((twice ? "opens " : "clicks ") + node.data().toString().toStdString());
  tree.scrollTo(node);
  const QPoint place = tree.visualRect(node).center();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
  if (twice && QApplication::activeModalWidget() == &top)
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
}

void walker::drag_any_node(QWidget& top) {
  const auto nodes = nodes_of(top);
  QTreeView& tree = tree_of(top);
  const QModelIndex source = nodes[below(static_cast<int>(nodes.size()))];
  const QModelIndex target = nodes[below(static_cast<int>(nodes.size()))];
  note("drags " + source.data().toString().toStdString() + " onto " +
       target.data().toString().toStdString());
  tree.scrollTo(target);
  tree.scrollTo(source);
  const QPoint from = tree.visualRect(source).center();
  const QPoint to = tree.visualRect(target).center();
  if (tree.viewport()->rect().contains(to)) drag(*tree.viewport(), from, to);
}

void walker::press_any_key(QWidget& top) {
  constexpr std::array keys = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Space,
                               Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left, Qt::Key_Right,
                               Qt::Key_Delete, Qt::Key_F2,     Qt::Key_X,    Qt::Key_F10,
                               Qt::Key_Home,   Qt::Key_End};
  const Qt::Key pressed = keys[below(keys.size())];
  note("presses key " + std::to_string(pressed));
  QWidget* focused = QApplication::focusWidget();
  QTest::keyClick(focused ? focused : &top, pressed,
                  below(4) == 0 ? Qt::ControlModifier : Qt::NoModifier);
}

void walker::close_by_frame(QWidget& top) {
  note("closes " + top.objectName().toStdString() + " by its frame");
  top.close();
}

void walker::use_file_dialog(QWidget& top) {
  auto& dialog = static_cast<QFileDialog&>(top);
  note("leaves the file dialog");
  if (below(2) == 0) return dialog.reject();
  dialog.selectFile(PROJECT_ROOT "/CMakeLists.txt");
  QMetaObject::invokeMethod(&dialog, "accept");
  if (dialog.isVisible()) dialog.reject();
}

}  // namespace harness
