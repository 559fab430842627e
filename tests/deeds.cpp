#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <stdexcept>

#include "dragging.h"
#include "harness.h"

namespace harness {
namespace {

template <class Widget = QWidget>
Widget& find(const std::string& name) {
  auto* found = top_window().findChild<Widget*>(QString::fromStdString(name));
  if (!found) throw std::runtime_error("no control " + name);
  return *found;
}

QTreeView& tree() {
  return find<QTreeView>("SSTree1");
}

QModelIndex child_by_text(const QModelIndex& parent, const QString& text) {
  const QAbstractItemModel& model = *tree().model();
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex child = model.index(row, 0, parent);
    if (child.data().toString() == text) return child;
    const QModelIndex below = child_by_text(child, text);
    if (below.isValid()) return below;
  }
  return {};
}

QModelIndex node(const std::string& path) {
  QModelIndex found = child_by_text({}, QString::fromStdString(path));
  if (found.isValid()) return found;
  for (const QString& text : QString::fromStdString(path).split('/')) {
    found = child_by_text(found, text);
    if (!found.isValid()) throw std::runtime_error("no node " + path);
  }
  return found;
}

QPoint place_of(const QModelIndex& index) {
  tree().scrollTo(index);
  return tree().visualRect(index).center();
}

void collect(const QModelIndex& parent, const std::string& indent,
             std::vector<std::string>& lines) {
  const QAbstractItemModel& model = *tree().model();
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex child = model.index(row, 0, parent);
    lines.push_back(indent + child.data().toString().toStdString());
    collect(child, indent + "  ", lines);
  }
}

}  // namespace

QWidget& top_window() {
  return *QApplication::activeModalWidget();
}

void press(const std::string& button) {
  auto& found = find<QAbstractButton>(button);
  ASSERT_TRUE(found.isEnabled()) << button << " is off";
  found.click();
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

void type(const std::string& text_box, const std::string& text) {
  auto& box = find(text_box);
  ASSERT_TRUE(box.isEnabled()) << text_box << " is off";
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&box, Qt::Key_Delete);
  if (text.empty()) return;
  QInputMethodEvent composed;
  composed.setCommitString(QString::fromStdString(text));
  QApplication::sendEvent(&box, &composed);
}

std::string text_of(const std::string& control) {
  QWidget& found = find(control);
  if (auto* edit = qobject_cast<QLineEdit*>(&found)) return edit->text().toStdString();
  if (auto* edit = qobject_cast<QPlainTextEdit*>(&found)) return edit->toPlainText().toStdString();
  if (auto* combo = qobject_cast<QComboBox*>(&found)) return combo->currentText().toStdString();
  if (auto* label = qobject_cast<QLabel*>(&found)) return label->text().toStdString();
  if (auto* button = qobject_cast<QAbstractButton*>(&found)) return button->text().toStdString();
  throw std::runtime_error(control + " has no text");
}

void choose(const std::string& combo, const std::string& item) {
  auto& box = find<QComboBox>(combo);
  const int index = box.findText(QString::fromStdString(item));
  ASSERT_GE(index, 0) << "no entry " << item;
  box.setCurrentIndex(index);
}

void click_node(const std::string& path) {
  const QPoint place = place_of(node(path));
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place);
}

void drag_node(const std::string& from_path, const std::string& to_path) {
  const QPoint from = place_of(node(from_path));
  drag(*tree().viewport(), from, tree().visualRect(node(to_path)).center());
}

std::vector<std::string> tree_lines() {
  std::vector<std::string> lines;
  collect({}, "", lines);
  return lines;
}

std::string focused_control() {
  const QWidget* focused = top_window().focusWidget();
  return focused ? focused->objectName().toStdString() : "none";
}

void key(int toolkit_key, const std::string& modifiers) {
  Qt::KeyboardModifiers held;
  if (modifiers.find("ctrl") != std::string::npos) held |= Qt::ControlModifier;
  if (modifiers.find("shift") != std::string::npos) held |= Qt::ShiftModifier;
  if (modifiers.find("alt") != std::string::npos) held |= Qt::AltModifier;
  QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : &top_window();
  QTest::keyClick(target, static_cast<Qt::Key>(toolkit_key), held);
}

}  // namespace harness
