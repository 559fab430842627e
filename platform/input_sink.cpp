#include "platform/input_sink.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <memory>
#include <utility>
#include <vector>

#include "platform/modal_loop.h"

namespace platform {
namespace {

thread_local QPointer<QWidget> text_with_keyboard;
thread_local std::vector<std::unique_ptr<QEvent>> kept_typing;

bool is_typing(const QEvent& event) {
  if (event.type() == QEvent::InputMethod) return true;
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const bool has_text = !key.text().isEmpty() && key.text().front().isPrint();
  return !(key.modifiers() & commands) && (has_text || key.key() == Qt::Key_Backspace);
}

bool text_keeps_keyboard() {
  return text_with_keyboard && text_with_keyboard == QApplication::focusWidget();
}

}  // namespace

void input_sink::swallow() {
  qApp->installEventFilter(this);
  let_events_happen([] { QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers); });
  qApp->removeEventFilter(this);
}

bool input_sink::eventFilter(QObject* receiver, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::Drop:
    case QEvent::Close:
      if (!takes(receiver, event)) return false;
      if (text_keeps_keyboard() && is_typing(*event)) kept_typing.emplace_back(event->clone());
      return true;
    default:
      return false;
  }
}

void input_sink::begin_turn() {
  kept_typing.clear();
  QWidget* const focused = QApplication::focusWidget();
  const bool is_text = qobject_cast<QLineEdit*>(focused) || qobject_cast<QPlainTextEdit*>(focused);
  text_with_keyboard = is_text ? focused : nullptr;
}

void input_sink::give_back_typing() {
  auto typing = std::exchange(kept_typing, {});
  if (!text_keeps_keyboard()) return;
  for (auto& event : typing) QCoreApplication::postEvent(text_with_keyboard, event.release());
}

}  // namespace platform
