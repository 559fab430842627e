#include "platform/window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>

#include "platform/form.h"
#include "platform/key_codes.h"

namespace platform {

namespace {

// Alt and a digit comes here only if the button that it presses is off: a shortcut that is on takes
// the key before. A text field would take the digit for typed text.
bool is_shortcut_of_no_use(const QKeyEvent& key) {
  return key.modifiers() == Qt::AltModifier && key.key() >= Qt::Key_0 && key.key() <= Qt::Key_9;
}

}  // namespace

window::window(Form& form, QWidget* owner) : QDialog(owner), form_(form) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
  qApp->installEventFilter(this);
}

QSize window::room_on_screen() const {
  constexpr QSize frame(16, 48);
  return screen()->availableSize() - frame;
}

window::~window() {
  qApp->removeEventFilter(this);
}

void window::close_form() {
  form_.guarded([this] { form_.on_close ? form_.on_close() : form_.unload(); });
}

// Esc ends up here. The dialog's own way would end the modal loop past the form.
void window::reject() {
  if (form_.esc_closes) close_form();
}

void window::closeEvent(QCloseEvent* event) {
  event->ignore();
  close_form();
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
