#include "window_player.h"

#include <QApplication>
#include <QDateTime>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

#include "ta_vorlumine/replace_class.h"
#include "user.h"
#include "window_manners.h"

namespace harness {
namespace {

constexpr int longest_wait = 10'000;  // milliseconds
constexpr std::size_t actions_told = 25;
window_player* now_playing = nullptr;

}  // namespace

window_player* window_player::playing() {
  return now_playing;
}

void window_player::note(const std::string& action) {
  last_actions_.push_back(action);
  if (last_actions_.size() > actions_told) last_actions_.pop_front();
}

void window_player::give_up(const std::string& why) const {
  std::fprintf(stderr, "%s: %s\n", name().c_str(), why.c_str());
  for (const std::string& action : last_actions_) std::fprintf(stderr, "  %s\n", action.c_str());
  std::fflush(nullptr);
  std::abort();
}

void window_player::play(const std::function<void()>& open) {
  window_player* const outer = std::exchange(now_playing, this);
  idle_since_ = QDateTime::currentMSecsSinceEpoch();
  QTimer clock;
  // Queued, since a timer doesn't fire again while its own slot runs.
  QObject::connect(
      &clock, &QTimer::timeout, &clock, [this] { tick(); }, Qt::QueuedConnection);
  clock.start(0);
  open();
  now_playing = outer;
}

void window_player::tick() {
  QWidget* top = QApplication::activeModalWidget();
  const bool waits = top && top->isVisible() && (at_work_.empty() || at_work_.back() != top);
  if (waits && QApplication::activeWindow() != top) return top->activateWindow();
  if (!waits) {
    const bool too_long = QDateTime::currentMSecsSinceEpoch() - idle_since_ > longest_wait;
    return too_long ? give_up("nothing goes on at " + name_of(top)) : void();
  }
  if (const std::string fault = fault_of_window(*top); !fault.empty())
    give_up(name_of(top) + ": " + fault);
  at_work_.push_back(top);
  try {
    take_turn(*top);
  } catch (const std::exception& failure) {
    give_up(failure.what());
  }
  at_work_.pop_back();
  idle_since_ = QDateTime::currentMSecsSinceEpoch();
}

void show_browser(const std::string& connect_string) {
  ta_vorlumine::replaceClass editor;
  editor.CONNECT_STRING = connect_string;
  editor.replace_show();
}

std::string name_of(const QWidget* window) {
  if (!window) return "no window";
  if (const auto* box = qobject_cast<const QMessageBox*>(window)) return box->text().toStdString();
  return window->objectName().toStdString();
}

void leave(const QWidget& window) {
  const std::string name = name_of(&window);
  if (name == "replaceForm") return press("close");
  if (name == "replace_create") return press("exit");
  press(name == "replaceFolder" ? "Command3" : "Command2");
}

}  // namespace harness
