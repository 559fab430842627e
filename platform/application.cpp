#include "platform/application.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QThread>
#include <QTranslator>
#include <atomic>
#include <stdexcept>

#include <xcb/xcb.h>

namespace platform {
namespace {

int argument_count = 1;
char program_name[] = "ta_vorlumine";
char* arguments[] = {program_name, nullptr};

bool x_server_answers() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool answers = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return answers;
}

bool has_display() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!platform.isEmpty() && !platform.startsWith("xcb")) return true;
  if (platform.isEmpty() && qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) return true;
  return x_server_answers();
}

/// One call at a time in the process: the toolkit has one application object, which is not safe to
/// look at while another thread makes or ends it.
class turn {
 public:
  turn() {
    if (taken_.test_and_set()) throw std::runtime_error("windows run on another thread already");
  }
  turn(const turn&) = delete;
  turn& operator=(const turn&) = delete;
  ~turn() { taken_.clear(); }

 private:
  static inline std::atomic_flag taken_;
};

}  // namespace

struct application::parts {
  turn held;
  std::unique_ptr<QApplication> own;
  QTranslator japanese;
};

application::application() : parts_(std::make_unique<parts>()) {
  // Without a display the toolkit would end the host's process.
  if (!QCoreApplication::instance() && !has_display()) {
    throw std::runtime_error("no display: windows cannot be shown here");
  }
  const QCoreApplication* hosts = QCoreApplication::instance();
  if (hosts && !qobject_cast<const QApplication*>(hosts)) {
    throw std::runtime_error("the host's application object can show no windows");
  }
  if (hosts && hosts->thread() != QThread::currentThread()) {
    throw std::runtime_error("windows can only be shown on the thread of the host's application");
  }
  if (!hosts) parts_->own = std::make_unique<QApplication>(argument_count, arguments);
  if (parts_->japanese.load("qtbase_ja", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&parts_->japanese);
  }
}

application::~application() {
  QCoreApplication::removeTranslator(&parts_->japanese);
}

}  // namespace platform
