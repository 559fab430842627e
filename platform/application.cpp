#include "platform/application.h"

#include <xcb/xcb.h>
#include <QApplication>
#include <QDir>
#include <QHash>
#include <QLibraryInfo>
#include <QThread>
#include <QTranslator>
#include <mutex>
#include <stdexcept>

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

// A Wayland session is of no use to a toolkit without its plugin, unless it has an X server, too.
bool has_wayland() {
  const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms");
  return qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
         !plugins.entryList({"*wayland*"}, QDir::Files).isEmpty();
}

bool has_display() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!platform.isEmpty() && !platform.startsWith("xcb")) return true;
  return (platform.isEmpty() && has_wayland()) || x_server_answers();
}

void require_windows() {
  const QCoreApplication* hosts = QCoreApplication::instance();
  // Without a display the toolkit would end the host's process.
  if (!hosts && !has_display()) {
    throw std::runtime_error("no display: windows cannot be shown here");
  }
  if (hosts && !qobject_cast<const QApplication*>(hosts)) {
    throw std::runtime_error("the host's application object can show no windows");
  }
  if (hosts && hosts->thread() != QThread::currentThread()) {
    throw std::runtime_error("windows can only be shown on the thread of the host's application");
  }
}

// The toolkit takes the first thread with windows for its own, for good: on another one they come
// up, but no key and no click reaches them.
std::mutex claiming;
bool claimed = false;
thread_local bool is_window_thread = false;

void claim_thread() {
  const std::lock_guard lock(claiming);
  if (claimed && !is_window_thread) {
    throw std::runtime_error("windows can only be shown on the thread that showed the first one");
  }
  require_windows();
  claimed = is_window_thread = true;
}

/// What the toolkit's own Japanese leaves out: words of the dialog that opens files.
class left_out_words : public QTranslator {
 public:
  [[nodiscard]] bool isEmpty() const override { return false; }

  [[nodiscard]] QString translate(const char* context, const char* source, const char*,
                                  int) const override {
    static const QHash<QByteArray, QString> words{
        {"Folder", "フォルダ"},     {"Drive", "ドライブ"}, {"File", "ファイル"},
        {"%1 File", "%1 ファイル"}, {"bytes", "バイト"},   {"%Ln byte(s)", "%Ln バイト"}};
    const QByteArray room(context);
    const bool ours = room == "QAbstractFileIconProvider" || room == "QFileDialog" ||
                      room == "QFileSystemModel" || room == "QLocale";
    return ours ? words.value(source) : QString();
  }
};

}  // namespace

struct application::parts {
  std::unique_ptr<QApplication> own;
  QTranslator japanese;
  left_out_words further;
};

application::application() {
  claim_thread();
  const bool host_has_one = QCoreApplication::instance() != nullptr;
  parts_ = std::make_unique<parts>();
  if (!host_has_one) parts_->own = std::make_unique<QApplication>(argument_count, arguments);
  if (parts_->japanese.load("qtbase_ja", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&parts_->japanese);
  }
  QCoreApplication::installTranslator(&parts_->further);
}

application::~application() {
  QCoreApplication::removeTranslator(&parts_->further);
  QCoreApplication::removeTranslator(&parts_->japanese);
}

}  // namespace platform
