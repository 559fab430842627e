#include "platform/application.h"

#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QHash>
#include <QLibraryInfo>
#include <QThread>
#include <QTranslator>
#include <array>
#include <clocale>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/displays.h"
#include "platform/modal_loop.h"
#include "platform/tool_button.h"

namespace platform {
namespace {

// The toolkit gives the process the locale of the environment, and so other signs to the host's
// numbers. Each part may have been set apart.
class kept_locale {
 public:
  explicit kept_locale(int category)
      : category_(category), name_(std::setlocale(category, nullptr)) {}
  kept_locale(const kept_locale&) = delete;
  kept_locale& operator=(const kept_locale&) = delete;
  ~kept_locale() { std::setlocale(category_, name_.c_str()); }

 private:
  int category_;
  std::string name_;
};

/// Gives the platform for an application object of ours.
QByteArray require_windows() {
  const QCoreApplication* hosts = QCoreApplication::instance();
  // There, too, the toolkit would end the process.
  if (!hosts && ::geteuid() != ::getuid() && !QCoreApplication::isSetuidAllowed()) {
    throw std::runtime_error("windows cannot be shown by a program with another user's rights");
  }
  if (hosts && !qobject_cast<const QApplication*>(hosts)) {
    throw std::runtime_error("the host's application object can show no windows");
  }
  if (hosts && hosts->thread() != QThread::currentThread()) {
    throw std::runtime_error("windows can only be shown on the thread of the host's application");
  }
  return hosts ? QByteArray() : usable_platform();
}

// The toolkit takes the first thread with windows for its own, for good: on another one they come
// up, but no key and no click reaches them.
std::mutex claiming;
bool claimed = false;
thread_local bool is_window_thread = false;

QByteArray claim_thread() {
  const std::lock_guard lock(claiming);
  if (claimed && !is_window_thread) {
    throw std::runtime_error("windows can only be shown on the thread that showed the first one");
  }
  QByteArray platform = require_windows();
  claimed = is_window_thread = true;
  return platform;
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

/// Whether the loop itself calls the receiver: a timer, a posted call or event, a socket.
bool comes_from_loop(const QEvent& event) {
  const QEvent::Type type = event.type();
  return type == QEvent::Timer || type == QEvent::MetaCall || type == QEvent::SockAct ||
         type >= QEvent::User;
}

}  // namespace

class application::parts : public QObject {
 public:
  explicit parts(QByteArray platform);
  parts(const parts&) = delete;
  parts& operator=(const parts&) = delete;
  ~parts() override;

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void make_own();
  void leave_for_quit();
  void deliver(QObject& receiver, QEvent& event);

  kept_locale input_locale_{LC_CTYPE};  // input methods set it when the first key is typed
  QByteArray name_{"ta_vorlumine"}, option_{"-platform"}, platform_;
  std::array<char*, 3> arguments_{};
  int argument_count_ = 0;
  std::unique_ptr<QApplication> own_;
  QTranslator japanese_;  // the two leave the application by themselves when they go
  left_out_words further_;
  std::optional<told_tool_buttons> told_;
  bool quit_is_due_ = false;
  const QEvent* passing_ = nullptr;  // on its way to its receiver, by deliver()
};

application::parts::parts(QByteArray platform) : platform_(std::move(platform)) {
  if (!qApp) make_own();
  // The toolkit asks whoever came last, and its own came with its application object.
  told_.emplace();
  qApp->installEventFilter(this);
  if (japanese_.load("qtbase_ja", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&japanese_);
  }
  QCoreApplication::installTranslator(&further_);
}

application::parts::~parts() {
  if (quit_is_due_ && !own_)
    QCoreApplication::postEvent(qApp, std::make_unique<QEvent>(QEvent::Quit).release());
}

void application::parts::make_own() {
  const kept_locale locale(LC_ALL);
  arguments_ = {name_.data(), option_.data(), platform_.data()};
  argument_count_ = platform_.isEmpty() ? 1 : 3;
  own_ = std::make_unique<QApplication>(argument_count_, arguments_.data());
}

bool application::parts::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver == qApp && event->type() == QEvent::Quit) {
    leave_for_quit();
    return true;
  }
  const bool passes = std::exchange(passing_, nullptr) == event;
  if (passes || !comes_from_loop(*event)) return false;
  // What a dialog of the host's on top runs is between the two.
  if (QApplication::activeModalWidget() != running_dialog()) return false;
  deliver(*receiver, *event);
  return true;
}

// The loop's own code is not made for exceptions: the next loop would crash.
void application::parts::deliver(QObject& receiver, QEvent& event) {
  let_events_happen([&] {
    passing_ = &event;
    qApp->notify(&receiver, &event);
  });
  passing_ = nullptr;
}

// The toolkit would close the windows from the top, and quit if each goes at once, which those that
// wait for one above them can't. So it quits once they have gone. Who refuses on top of ours is
// somebody else's, and keeps the program.
void application::parts::leave_for_quit() {
  while (QWidget* top = QApplication::activeModalWidget()) {
    if (top == running_dialog()) break;
    if (!top->close() || top == QApplication::activeModalWidget()) return;
  }
  quit_is_due_ = true;
  leave_windows();
}

application::application() : parts_(std::make_unique<parts>(claim_thread())) {}

application::~application() {
  static_cast<void>(end_leaving());
}

void application::rethrow_hosts_failure() {
  if (const std::exception_ptr failure = end_leaving()) std::rethrow_exception(failure);
}

}  // namespace platform
