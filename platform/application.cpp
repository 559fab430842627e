#include "platform/application.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QThread>
#include <QTranslator>
#include <stdexcept>

namespace platform {
namespace {

int argument_count = 1;
char program_name[] = "ta_vorlumine";
char* arguments[] = {program_name, nullptr};

bool has_display() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

}  // namespace

struct application::parts {
  std::unique_ptr<QApplication> own;
  QTranslator japanese;
};

application::application() {
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
  parts_ = std::make_unique<parts>();
  if (!hosts) parts_->own = std::make_unique<QApplication>(argument_count, arguments);
  if (parts_->japanese.load("qtbase_ja", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&parts_->japanese);
  }
}

application::~application() {
  QCoreApplication::removeTranslator(&parts_->japanese);
}

}  // namespace platform
