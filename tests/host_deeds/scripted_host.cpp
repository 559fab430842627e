#include "scripted_host.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "ta_vorlumine/replace_class.h"

namespace host {
namespace {

steps script;
QPointer<QWidget> last_top;

// A timer doesn't fire again while its own slot runs, but the next one does.
void tick() {
  if (script.empty()) return;
  QTimer::singleShot(5, QCoreApplication::instance(), tick);
  QWidget* top = QApplication::activeModalWidget();
  if (!top || !top->isVisible() || top == last_top || !top->isActiveWindow()) return;
  last_top = top;
  const auto step = std::move(script.front());
  script.pop_front();
  step();
}

void begin() {
  last_top = nullptr;
  QTimer::singleShot(0, QCoreApplication::instance(), tick);
}
Q_COREAPP_STARTUP_FUNCTION(begin)

/// The folder of the store, which goes with the process.
struct store_folder {
  store_folder() {
    std::string name = (std::filesystem::temp_directory_path() / "deedsXXXXXX").string();
    path = ::mkdtemp(name.data());
    if (std::system((RULE_STORE " init " + file()).c_str()) != 0) std::abort();
  }
  store_folder(const store_folder&) = delete;
  store_folder& operator=(const store_folder&) = delete;
  ~store_folder() { std::filesystem::remove_all(path); }
  [[nodiscard]] std::string file() const { return path + "/store.db"; }

  std::string path;
};

const store_folder& folder() {
  static const store_folder made;
  return made;
}

}  // namespace

void play(steps added) {
  script = std::move(added);
  begin();
}

bool all_done() {
  return script.empty();
}

void press(const char* button) {
  QApplication::activeModalWidget()->findChild<QAbstractButton*>(button)->click();
}

steps way_down(int depth, std::function<void()> deed) {
  steps way{[] {
              auto* const tree = QApplication::activeModalWidget()->findChild<QWidget*>("SSTree1");
              for (const auto key : {Qt::Key_Home, Qt::Key_Space}) {
                QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
                QCoreApplication::sendEvent(tree, &event);
              }
              press("add");
            },
            [] { press("cond_val_set"); }, [] { press("Command1"); }};
  way.resize(static_cast<std::size_t>(depth) - 1);
  way.push_back(std::move(deed));
  return way;
}

void soon(std::function<void()> deed) {
  QTimer::singleShot(0, qApp, std::move(deed));
}

const std::string& connect_string() {
  static const std::string text = "Driver=SQLite;Database=" + folder().file();
  return text;
}

std::string printed_store() {
  const std::string to = folder().path + "/printed";
  const std::string command = RULE_STORE " print '" + connect_string() + "' > " + to;
  if (std::system(command.c_str()) != 0) return "not printed";
  std::FILE* file = std::fopen(to.c_str(), "r");
  std::string text(std::filesystem::file_size(to), ' ');
  text.resize(std::fread(text.data(), 1, text.size(), file));
  std::fclose(file);
  return text;
}

std::string show() {
  ta_vorlumine::replaceClass editor;
  editor.CONNECT_STRING = connect_string();
  try {
    editor.replace_show();
    return {};
  } catch (const std::runtime_error& failure) {
    return failure.what();
  }
}

bool shows_again() {
  play({[] { press("close"); }});
  const std::string failure = show();
  if (!failure.empty()) std::fprintf(stderr, "%s\n", failure.c_str());
  return failure.empty() && all_done();
}

}  // namespace host
