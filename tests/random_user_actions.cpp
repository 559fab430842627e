#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <array>

#include "random_user.h"
#include "user.h"

namespace harness {
namespace {

/// The names of the window's controls of a kind that can be used.
template <class Widget>
std::vector<std::string> usable() {
  std::vector<std::string> names;
  for (const Widget* widget : top_window().findChildren<Widget*>()) {
    if (widget->isVisible() && widget->isEnabled() && !widget->objectName().startsWith("qt_"))
      names.push_back(widget->objectName().toStdString());
  }
  return names;
}

}  // namespace

std::string random_user::any_text(bool of_grid) {
  static const std::string longer(101, 'x');
  static const std::string longest = std::string(97, 'y') + "'😀z";
  static const std::vector<std::string> odd = {"O'Brien''s", "%10",   "<title> %01", "😀漢字",
                                               longer,       longest, "１２３",      "一行\n二行",
                                               "",           " "};
  static const std::vector<std::string> exact = {
      "2005/01/31", "2005/02/30", "1999/12/31", "2005/1/1", "12", "-3.5", "１２３", "1e400", "007"};
  if (of_grid && below(2) == 0) return any_of(exact);
  return below(3) > 0 ? "語" + std::to_string(below(300)) : any_of(odd);
}

// What leads out of a window, or to files, is pressed less often than the rest.
void random_user::press_any() {
  std::vector<choice> choices;
  for (const std::string& name : usable<QAbstractButton>()) {
    const bool is_rare = name == "close" || name == "exit" || text_of(name) == "...";
    choices.emplace_back(is_rare ? 1 : 6, [name] { press(name); });
  }
  if (!choices.empty()) pick(choices);
}

void random_user::type_any() {
  std::vector<std::string> boxes = usable<QLineEdit>();
  std::ranges::copy(usable<QPlainTextEdit>(), std::back_inserter(boxes));
  if (boxes.empty()) return press_any();
  type(any_of(boxes), any_text(false));
  if (below(8) == 0) compose("", any_text(false));
}

void random_user::choose_any() {
  const auto lists = usable<QComboBox>();
  if (lists.empty()) return press_any();
  const std::string& name = any_of(lists);
  const auto& list = static_cast<QComboBox&>(control(name));
  if (list.count() > 0) choose(name, list.itemText(below(list.count())).toStdString());
}

// The edit of a cell is taken by a key, or left open for what comes next.
void random_user::use_grid() {
  const int rows = grid().model()->rowCount();
  if (rows == 0 || below(10) == 0) {
    note("clicks somewhere into the grid");
    QWidget& area = *grid().viewport();
    const QPoint place(below(area.width()), below(area.height()));
    return QTest::mouseClick(&area, Qt::LeftButton, {}, place);
  }
  const int column = 5 + below(grid().model()->columnCount());
  const std::string text = column % 2 == 0 ? std::to_string(1 + below(3)) : any_text(true);
  begin_cell(1 + below(rows), column, text);
  if (column % 2 == 1 && below(8) == 0) compose("", "み");
  static const std::vector<int> ends = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Tab,
                                        Qt::Key_Escape};
  if (below(5) > 0) key(any_of(ends));
}

void random_user::click_any_node(bool twice) {
  const QModelIndex node = any_of(all_nodes());
  const QWidget& window = top_window();
  click_node(node);
  if (twice && &window == QApplication::activeModalWidget()) double_click_node(node);
}

void random_user::drag_any_node() {
  const auto nodes = all_nodes();
  drag_node(any_of(nodes), any_of(nodes));
}

void random_user::press_any_key() {
  static const std::vector<int> keys = {
      Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Space,
      Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Home,
      Qt::Key_End,    Qt::Key_PageUp, Qt::Key_Insert, Qt::Key_Delete,  Qt::Key_F2,
      Qt::Key_F10,    Qt::Key_X,      Qt::Key_C,      Qt::Key_1,       Qt::Key_4};
  static const std::vector<Qt::KeyboardModifier> held = {
      Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
  key(any_of(keys), any_of(held));
}

void random_user::use_menu() {
  key(Qt::Key_F10, Qt::ShiftModifier);
  auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (!menu) return;
  const auto entries = menu->actions();
  QAction* const entry = below(2) == 0 ? entries.back() : any_of(entries);  // moving stands last
  menu->close();
  note("chooses " + entry->text().toStdString());
  entry->trigger();
}

void random_user::search_any() {
  static const std::vector<int> ends = {Qt::Key_Return, Qt::Key_Down, Qt::Key_Up, Qt::Key_Tab,
                                        Qt::Key_Escape};
  const auto nodes = all_nodes();
  const QString text = any_of(nodes).data().toString();
  key(Qt::Key_F, Qt::ControlModifier);
  compose(below(3) > 0 ? text.left(1 + below(3)).toStdString() : any_text(false));
  for (int left = below(4); left > 0; --left) key(any_of(ends));
}

void random_user::paste_any() {
  std::string cells;
  for (int left = 1 + below(6); left > 0; --left) cells += any_text(true) + "\t\t\n"[below(3)];
  QClipboard& clipboard = *QApplication::clipboard();
  pick({{6, [&] { clipboard.setText(QString::fromStdString(cells)); }},
        {1, [&] { clipboard.setImage(QImage(8, 8, QImage::Format_RGB32)); }},
        {1, [&] { clipboard.clear(); }}});
  note("pastes " + clipboard.text().toStdString());
  key(Qt::Key_V, Qt::ControlModifier);
}

void random_user::resize_any(QWidget& top) {
  note("resizes " + name_of(&top));
  top.resize(below(1500), below(1000));
}

void random_user::change_font() {
  note("changes the font");
  QFont font = QApplication::font();
  font.setPointSize(6 + below(25));
  QApplication::setFont(font);
}

void random_user::close_by_frame(QWidget& top) {
  note("closes " + name_of(&top) + " by its frame");
  top.close();
}

void random_user::use_file_dialog(QWidget& top) {
  auto& dialog = static_cast<QFileDialog&>(top);
  note("leaves the file dialog");
  if (below(2) == 0) return dialog.reject();
  dialog.selectFile(PROJECT_ROOT "/CMakeLists.txt");
  QMetaObject::invokeMethod(&dialog, "accept");
  if (dialog.isVisible()) dialog.reject();
}

}  // namespace harness
