#include "platform/tool_button.h"

#include <QAccessibleWidget>
#include <QKeyEvent>

namespace platform {
namespace {

// The toolkit's own would click within the screen reader's call. A click that opens a modal window
// ends with that window, and until then the screen reader would wait for its answer, and give up.
class tool_button_access : public QAccessibleWidget {
 public:
  explicit tool_button_access(tool_button& button)
      : QAccessibleWidget(&button, QAccessible::Button, button.text()), button_(button) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Accelerator) return button_.shortcut().toString();
    return QAccessibleWidget::text(kind);
  }

  [[nodiscard]] QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (button_.isEnabled()) names.prepend(pressAction());
    return names;
  }

  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    button_.animateClick();
  }

  [[nodiscard]] QStringList keyBindingsForAction(const QString& action) const override {
    if (action != pressAction()) return QAccessibleWidget::keyBindingsForAction(action);
    return {button_.shortcut().toString()};
  }

 private:
  tool_button& button_;
};

QAccessibleInterface* make_access(const QString&, QObject* object) {
  auto* button = dynamic_cast<tool_button*>(object);
  return button ? new tool_button_access(*button) : nullptr;
}

}  // namespace

told_tool_buttons::told_tool_buttons() {
  QAccessible::installFactory(make_access);
}

told_tool_buttons::~told_tool_buttons() {
  QAccessible::removeFactory(make_access);
}

// Not within the key's own event, which an input method is still at work on.
bool tool_button::event(QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QToolButton::event(event);
  QMetaObject::invokeMethod(this, &QAbstractButton::click, Qt::QueuedConnection);
  return true;
}

void tool_button::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  enter ? click() : QToolButton::keyPressEvent(event);
}

}  // namespace platform
