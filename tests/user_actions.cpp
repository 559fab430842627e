#include <private/qdnd_p.h>
#include <private/qguiapplication_p.h>
#include <private/qsimpledrag_p.h>
#include <qpa/qplatformintegration.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QMenu>
#include <QPainter>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

#include "user.h"
#include "window_player.h"

namespace harness {
namespace {

void perform(const std::string& what, const std::function<void()>& action) {
  if (auto* player = window_player::playing()) player->note(what);
  act(action);
}

template <class Widget = QWidget>
Widget& find(const std::string& name) {
  auto* found = top_window().findChild<Widget*>(QString::fromStdString(name));
  if (!found) throw std::runtime_error("no control " + name + " in " + name_of(&top_window()));
  return *found;
}

template <class Widget>
Widget& usable(const std::string& name) {
  auto& found = find<Widget>(name);
  if (!found.isEnabled()) throw std::runtime_error(name + " is off");
  return found;
}

std::string text_of(const QModelIndex& index) {
  return index.data().toString().toStdString();
}

/// Whether the node has this text, or, of a path, the last one and nodes above it the others.
bool has_path(const QModelIndex& node, const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (text_of(node) == path) return true;
  if (slash == path.npos || text_of(node) != path.substr(slash + 1)) return false;
  QModelIndex above = node.parent();
  while (above.isValid() && !has_path(above, path.substr(0, slash))) above = above.parent();
  return above.isValid();
}

QPoint place_of(const QModelIndex& index) {
  tree().scrollTo(index);
  return tree().visualRect(index).center();
}

/// The drags that the toolkit has where a platform has none of its own. A drag has an event loop of
/// its own, in which `way` is gone, once; without one the drag is given up.
class played_drag : public QSimpleDrag {
 public:
  std::function<void()> way;

 protected:
  void startDrag() override {
    QSimpleDrag::startDrag();
    const auto go = [this, gone = std::exchange(way, {})] { gone ? gone() : cancelDrag(); };
    QMetaObject::invokeMethod(this, go, Qt::QueuedConnection);
  }
};

/// Without a display the toolkit ends each drag as it begins: its drags are made to be this one.
played_drag& drag_of_toolkit() {
  class integration : public QPlatformIntegration {
   public:
    [[nodiscard]] QPlatformDrag* drag() const override {
      static auto* const played = new played_drag;  // kept: its window needs the application
      return played;
    }
    QPlatformWindow* createPlatformWindow(QWindow*) const override { return nullptr; }
    QPlatformBackingStore* createPlatformBackingStore(QWindow*) const override { return nullptr; }
    QAbstractEventDispatcher* createEventDispatcher() const override { return nullptr; }
  };
  static auto* const made = [] {
    static integration for_drags;
    QPlatformIntegration* const whole =
        std::exchange(QGuiApplicationPrivate::platform_integration, &for_drags);
    QDragManager::self();
    QGuiApplicationPrivate::platform_integration = whole;
    return static_cast<played_drag*>(for_drags.drag());
  }();
  return *made;
}

// Five columns are not shown.
QModelIndex cell(int row, int column) {
  return grid().model()->index(row - 1, column - 5);
}

QWidget& focus() {
  QWidget* const focused = QApplication::focusWidget();
  return focused ? *focused : top_window();
}

}  // namespace

void press(const std::string& button) {
  perform("presses " + button, [=] { usable<QAbstractButton>(button).click(); });
}

void type(const std::string& text_box, const std::string& text) {
  perform("types \"" + text + "\" into " + text_box, [=] {
    auto& box = usable<QWidget>(text_box);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    if (!text.empty()) compose(text);
  });
}

void choose(const std::string& combo, const std::string& item) {
  perform("chooses " + item, [=] {
    auto& box = find<QComboBox>(combo);
    const int index = box.findText(QString::fromStdString(item));
    if (index < 0) throw std::runtime_error("no entry " + item);
    box.setCurrentIndex(index);
  });
}

void compose(const std::string& text, const std::string& unfinished) {
  act([=] {
    QInputMethodEvent composed(QString::fromStdString(unfinished), {});
    composed.setCommitString(QString::fromStdString(text));
    QApplication::sendEvent(&focus(), &composed);
  });
}

void key(int toolkit_key, Qt::KeyboardModifiers held) {
  perform("presses key " + std::to_string(toolkit_key),
          [=] { QTest::keyClick(&focus(), static_cast<Qt::Key>(toolkit_key), held); });
}

void click_node(const std::string& path) {
  click_node(node(path));
}

void click_node(const QModelIndex& node) {
  perform("clicks " + text_of(node),
          [=] { QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place_of(node)); });
}

std::string menu(const std::string& entry, const std::function<void()>& look) {
  std::string entries;
  perform("chooses " + entry + " from the menu", [&] {
    QTest::keyClick(&focus(), Qt::Key_F10, Qt::ShiftModifier);
    QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return;
    if (menu->activeAction() != menu->actions().first())
      throw std::runtime_error("the keyboard is at no entry of the menu");
    if (look) look();
    menu->close();
    for (QAction* action : menu->actions()) {
      const std::string text = action->text().toStdString();
      if (!text.empty()) entries += (entries.empty() ? "" : " ") + text;
      if (!entry.empty() && text.starts_with(entry)) return action->trigger();
    }
  });
  return entries;
}

void double_click_node(const QModelIndex& node) {
  perform("opens " + text_of(node),
          [=] { QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, place_of(node)); });
}

void let_drags_run() {
  drag_of_toolkit();
}

void drag_node(const QModelIndex& source, const QModelIndex& target,
               const std::function<bool()>& rest) {
  perform("drags " + text_of(source) + " onto " + text_of(target), [=] {
    QWidget& area = *tree().viewport();
    tree().scrollTo(target);
    const QPoint from = place_of(source);
    const QPoint to = tree().visualRect(target).center();
    if (!area.rect().contains(to)) return;
    const QPoint corner = area.mapTo(area.window(), QPoint());
    QWindow* const window = area.window()->windowHandle();
    drag_of_toolkit().way = [=] {
      for (const QPoint step : {QPoint(1, 0), QPoint(0, 0)})
        QTest::mouseMove(window, corner + to + step);
      if (rest && !QTest::qWaitFor(rest))
        window_player::playing()->give_up("the drag rests in vain");
      QTest::mouseRelease(window, Qt::LeftButton, {}, corner + to);
    };
    const QPoint off = from + QPoint(2 * QApplication::startDragDistance(), 0);
    QMouseEvent move(QEvent::MouseMove, off, area.mapToGlobal(off), Qt::NoButton, Qt::LeftButton,
                     {});
    QTest::mousePress(&area, Qt::LeftButton, {}, from);
    QApplication::sendEvent(&area, &move);
  });
}

void drag_node(const std::string& source, const std::string& target) {
  drag_node(node(source), node(target));
}

void begin_cell(int row, int column, const std::string& text) {
  perform("fills cell " + std::to_string(row) + "," + std::to_string(column) + " with " + text,
          [=] {
            const bool is_list = column % 2 == 0;
            grid().setFocus();
            grid().setCurrentIndex(cell(row, column));
            is_list ? QTest::keyClicks(&focus(), QString::fromStdString(text)) : compose(text);
          });
}

void fill_cell(int row, int column, const std::string& text) {
  begin_cell(row, column, text);
  key(Qt::Key_Return);
}

void click_cell(int row, int column) {
  act([=] {
    const QModelIndex index = cell(row, column);
    grid().scrollTo(index);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(index).center());
    if (auto* list = QApplication::activePopupWidget()) list->close();
  });
}

bool save_picture(const std::string& file) {
  QApplication::processEvents();
  QPixmap picture = top_window().grab();
  if (QWidget* const menu = QApplication::activePopupWidget())
    QPainter(&picture).drawPixmap(top_window().mapFromGlobal(menu->pos()), menu->grab());
  return picture.save(QString::fromStdString(file), "PNG", 0);  // the smallest file
}

bool is_enabled(const std::string& control) {
  return find(control).isEnabled();
}

std::string enabled_buttons() {
  std::string names;
  for (const QToolButton* button : find("Toolbar1").findChildren<QToolButton*>()) {
    if (button->isEnabled())
      names += (names.empty() ? "" : " ") + button->objectName().toStdString();
  }
  return names;
}

std::string text_of(const std::string& control) {
  for (const char* property : {"plainText", "currentText", "text"}) {
    const QVariant text = find(control).property(property);
    if (text.isValid()) return text.toString().toStdString();
  }
  throw std::runtime_error(control + " has no text");
}

std::string focused_control() {
  const QWidget* focused = top_window().focusWidget();
  return focused ? focused->objectName().toStdString() : "none";
}

std::vector<std::string> tree_lines() {
  std::vector<std::string> lines;
  for (const QModelIndex& node : all_nodes()) {
    std::string indent;
    for (QModelIndex above = node.parent(); above.isValid(); above = above.parent()) indent += "  ";
    lines.push_back(indent + text_of(node));
  }
  return lines;
}

std::vector<std::string> pictures() {
  const auto image_of = [](const QIcon& picture) { return picture.pixmap(16).toImage(); };
  std::vector<std::string> names;
  for (const QModelIndex& node : all_nodes()) {
    const QImage shown = image_of(node.data(Qt::DecorationRole).value<QIcon>());
    names.emplace_back("none");
    for (const char* name : {"root", "open", "close", "cond", "cond1", "cond2", "cond3", "val"}) {
      if (image_of(QIcon(QString(":/pictures/%1.svg").arg(name))) == shown) names.back() = name;
    }
  }
  return names;
}

std::vector<std::string> kinds() {
  std::vector<std::string> all;
  for (const QModelIndex& node : all_nodes())
    all.push_back(node.data(Qt::AccessibleDescriptionRole).toString().toStdString());
  return all;
}

std::string selected_node() {
  const QModelIndexList selected = tree().selectionModel()->selectedIndexes();
  return selected.isEmpty() ? "" : text_of(selected.first());
}

std::vector<std::string> grid_column(int column) {
  std::vector<std::string> texts;
  for (int row = 1; row <= grid().model()->rowCount(); ++row)
    texts.push_back(cell(row, column).data().toString().toStdString());
  return texts;
}

QWidget& control(const std::string& name) {
  return find(name);
}

QTreeView& tree() {
  return find<QTreeView>("SSTree1");
}

QTableView& grid() {
  return find<QTableView>("fg");
}

QModelIndex node(const std::string& path) {
  const auto nodes = all_nodes();
  const auto found =
      std::ranges::find_if(nodes, [&](const QModelIndex& node) { return has_path(node, path); });
  if (found == nodes.end()) throw std::runtime_error("no node " + path);
  return *found;
}

std::vector<QModelIndex> all_nodes() {
  const QAbstractItemModel& model = *tree().model();
  std::vector<QModelIndex> nodes;
  for (std::vector<QModelIndex> waiting{model.index(0, 0)}; !waiting.empty();) {
    nodes.push_back(waiting.back());
    waiting.pop_back();
    for (int row = model.rowCount(nodes.back()); row > 0; --row)
      waiting.push_back(model.index(row - 1, 0, nodes.back()));
  }
  return nodes;
}

}  // namespace harness
