#include "platform/input_sink.h"

#include <QApplication>
#include <QEvent>

namespace platform {

void input_sink::swallow() {
  qApp->installEventFilter(this);
  QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
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
      return takes(receiver, event);
    default:
      return false;
  }
}

}  // namespace platform
