#include "window_manners.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QToolButton>

namespace harness {
namespace {

QString told(const QWidget& widget, QAccessible::Text what) {
  return QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget))->text(what);
}

bool lies_over_others(const QWidget& control) {
  return control.objectName() == "search_box" || !control.parentWidget()->layout();
}

QString fault_of(const QWidget& control) {
  const bool has_tab_stop = (control.focusPolicy() & Qt::TabFocus) != 0 && control.isEnabled();
  if (has_tab_stop && !control.focusProxy() && told(control, QAccessible::Name).isEmpty())
    return "has no name for who hears it";
  const QWidget& window = *control.window();
  const bool has_its_room = window.width() >= window.minimumSizeHint().width();  // on its screen
  const auto* label = qobject_cast<const QLabel*>(&control);
  const bool is_short = label && !label->wordWrap() && label->toolTip().isEmpty();
  const bool shows_all = is_short || qobject_cast<const QAbstractButton*>(&control);
  if (shows_all && has_its_room && control.width() < control.minimumSizeHint().width())
    return "is cut";
  const auto* button = qobject_cast<const QToolButton*>(&control);
  const bool shows_text =
      button && !button->text().isEmpty() &&
      (button->icon().isNull() || button->toolButtonStyle() != Qt::ToolButtonIconOnly);
  if (button && !shows_text && button->arrowType() == Qt::NoArrow) return "shows nothing";
  const auto* frame = control.metaObject() == &QFrame::staticMetaObject
                          ? static_cast<const QFrame*>(&control)
                          : nullptr;
  if (frame && frame->children().isEmpty() && frame->frameShape() == QFrame::NoFrame)
    return "shows nothing";
  if (control.objectName() == "search_box" && !control.autoFillBackground())
    return "shows what lies below";
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
  if (const auto* box = qobject_cast<const QMessageBox*>(&window))
    return box->button(QMessageBox::Ok) == box->defaultButton() ? "" : "Enter is not OK";
  if (window.inherits("QFileDialog")) return {};  // the toolkit's own
  for (const QWidget* control : window.findChildren<QWidget*>()) {
    if (!control->isVisible()) continue;
    if (const auto* view = qobject_cast<const QAbstractItemView*>(control)) watch_model(*view);
    const QString fault = fault_of(*control);
    if (!fault.isEmpty()) return (control->objectName() + ' ' + fault).toStdString();
  }
  return {};
}

}  // namespace harness
