#include "window_manners.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>

namespace harness {
namespace {

QString told(const QWidget& widget, QAccessible::Text what) {
  return QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget))->text(what);
}

bool lies_over_others(const QWidget& control) {
  return control.objectName() == "search_box" || !control.parentWidget()->layout();
}

bool is_tab_stop(const QWidget& control) {
  return (control.focusPolicy() & Qt::TabFocus) != 0 && control.isEnabled() &&
         control.isVisible() && !control.focusProxy();
}

QString wrong_name(const QWidget& control) {
  if (!is_tab_stop(control)) return {};
  return told(control, QAccessible::Name).isEmpty() ? "has no name for who hears it" : "";
}

/// Whether Tab comes to it from somewhere below or to the right.
bool is_gone_back_to(const QWidget* control) {
  if (!is_tab_stop(*control)) return false;
  const QWidget* before = control->previousInFocusChain();
  while (!is_tab_stop(*before)) before = before->previousInFocusChain();
  const QPoint way =
      control->mapTo(control->window(), QPoint()) - before->mapTo(control->window(), QPoint());
  return way.x() <= 0 && way.y() <= 0;
}

QString wrong_look(const QWidget& control) {
  const auto* label = qobject_cast<const QLabel*>(&control);
  const bool is_named = label && !label->objectName().isEmpty();
  if (is_named && label->textFormat() != Qt::PlainText) return "may take a text for a page";
  const bool is_short = label && !label->wordWrap() && label->toolTip().isEmpty();
  const bool shows_all = is_short || qobject_cast<const QAbstractButton*>(&control);
  const QWidget& window = *control.window();
  const bool has_its_room = window.width() >= window.minimumSizeHint().width();  // on its screen
  if (shows_all && has_its_room && control.width() < control.minimumSizeHint().width())
    return "is cut";
  const auto* button = qobject_cast<const QToolButton*>(&control);
  const bool is_picture =
      button && !button->icon().isNull() && button->toolButtonStyle() == Qt::ToolButtonIconOnly;
  if (is_picture || (button && button->text().isEmpty() && button->arrowType() == Qt::NoArrow))
    return "has no words";
  return {};
}

QString wrong_place(const QWidget& control) {
  if (lies_over_others(control)) return {};
  if (!control.parentWidget()->rect().contains(control.geometry())) return "lies outside";
  for (const QObject* other : control.parentWidget()->children()) {
    const auto* beside = qobject_cast<const QWidget*>(other);
    if (beside && beside != &control && beside->isVisible() && !lies_over_others(*beside) &&
        beside->geometry().intersects(control.geometry())) {
      return "lies over " + beside->objectName();
    }
  }
  return {};
}

/// The toolkit's own check of what a model tells its views, from now on.
void watch_model(const QAbstractItemView& view) {
  constexpr int most_rows = 500;  // it asks for all rows at each change
  QAbstractItemModel* const model = view.model();
  if (!model || model->property("watched").toBool() || model->rowCount() > most_rows) return;
  model->setProperty("watched", true);
  new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal, model);
}

}  // namespace

std::string fault_of_window(const QWidget& window) {
  const QCursor* const pointer = QApplication::overrideCursor();
  if (pointer && pointer->shape() != Qt::ArrowCursor) return "the pointer stays busy";
  if (QApplication::activePopupWidget()) return {};
  const QWidget* const keyboard = QApplication::focusWidget();
  if (!keyboard || keyboard->window() != &window) return "the keyboard is nowhere";
  constexpr int signs_of_frame = 150;
  const int caption = window.fontMetrics().horizontalAdvance(window.windowTitle());
  if (caption + signs_of_frame > window.width()) return "its caption is cut";
  if (const auto* box = qobject_cast<const QMessageBox*>(&window)) {
    if (box->textFormat() != Qt::PlainText) return "may take a text for a page";
    return box->button(QMessageBox::Ok) == box->defaultButton() ? "" : "Enter is not OK";
  }
  if (window.inherits("QFileDialog")) return {};  // the toolkit's own
  const auto controls = window.findChildren<QWidget*>();
  if (std::ranges::count_if(controls, is_gone_back_to) > 1) return "Tab goes to and fro";
  for (const QWidget* control : controls) {
    if (!control->isVisible()) continue;
    if (const auto* view = qobject_cast<const QAbstractItemView*>(control)) watch_model(*view);
    for (const QString& fault : {wrong_name(*control), wrong_look(*control), wrong_place(*control)})
      if (!fault.isEmpty()) return (control->objectName() + ' ' + fault).toStdString();
  }
  return {};
}

}  // namespace harness
