#include "platform/window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

#include "platform/contrast.h"
#include "platform/form.h"
#include "platform/key_codes.h"

namespace platform {

namespace {

// Alt and a digit comes here only if the button that it presses is off: a shortcut that is on takes
// the key before. A text field would take the digit for typed text.
bool is_shortcut_of_no_use(const QKeyEvent& key) {
  return key.modifiers() == Qt::AltModifier && key.key() >= Qt::Key_0 && key.key() <= Qt::Key_9;
}

// Some styles mark these with no more than a shade, which a dark ground swallows.
bool hardly_shows_keyboard(const QWidget& control) {
  const bool button =
      qobject_cast<const QAbstractButton*>(&control) && !qobject_cast<const QPushButton*>(&control);
  return button || qobject_cast<const QComboBox*>(&control);
}

}  // namespace

window::window(Form& form, QWidget* owner) : QDialog(owner), form_(form) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
  qApp->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this, [this] { update(); });
}

QSize window::room_on_screen() const {
  constexpr QSize frame(16, 48);
  return screen()->availableSize() - frame;
}

window::~window() {
  qApp->removeEventFilter(this);
}

// Esc ends up here. The dialog's own way would end the modal loop past the form.
void window::reject() {
  if (form_.esc_closes) form_.close();
}

void window::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  const QWidget* control = QApplication::focusWidget();
  if (!control || control->window() != this || !hardly_shows_keyboard(*control)) return;
  QPainter painter(this);
  painter.setPen(QPen(
      readable_on(palette().color(QPalette::Window), palette().color(QPalette::Highlight)), 2));
  painter.drawRect(QRect(control->mapTo(this, QPoint()), control->size()).adjusted(-1, -1, 1, 1));
}

void window::closeEvent(QCloseEvent* event) {
  event->ignore();
  form_.close();
}

// The toolkit sends a key to the focused control and then up through its parents; the form is asked
// once, at the control itself.
bool window::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  if (receiver != QApplication::focusWidget() || QApplication::activeWindow() != this) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (is_shortcut_of_no_use(key)) return true;
  if (!form_.on_key_down) return false;
  int code = key_code(key);
  form_.guarded([&] { form_.on_key_down(code, shift_state(key.modifiers())); });
  return code == 0;
}

}  // namespace platform
