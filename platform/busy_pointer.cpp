#include "platform/busy_pointer.h"

#include <QApplication>
#include <QEvent>

namespace platform {
namespace {

/// Swallows what the user did to the windows.
class input_sink : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::ShortcutOverride:
      case QEvent::Shortcut:
      case QEvent::Close:
        return true;
      default:
        return false;
    }
  }
};

}  // namespace

busy_pointer::busy_pointer() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
}

busy_pointer::~busy_pointer() {
  input_sink sink;
  qApp->installEventFilter(&sink);
  QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
  qApp->removeEventFilter(&sink);
  QApplication::restoreOverrideCursor();
}

}  // namespace platform
