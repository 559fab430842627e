#include "platform/busy_pointer.h"

#include <QApplication>
#include <chrono>

#include "platform/input_sink.h"

namespace platform {
namespace {

using std::chrono::steady_clock;

// As long as a double click may take, whose second press must not get lost.
constexpr std::chrono::milliseconds blink(500);

thread_local steady_clock::time_point last_answer;

void begin_turn() {
  last_answer = steady_clock::now();
  input_sink::begin_turn();
}

void swallow_after_blink() {
  if (steady_clock::now() - last_answer > blink) input_sink().swallow();
}

}  // namespace

busy_pointer::busy_pointer() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
}

busy_pointer::~busy_pointer() {
  swallow_after_blink();
  QApplication::restoreOverrideCursor();
}

event_run::event_run() {
  begin_turn();
}

event_run::~event_run() {
  swallow_after_blink();
  input_sink::give_back_typing();
}

modal_run::modal_run() : is_busy_outside_(QApplication::overrideCursor() != nullptr) {
  swallow_after_blink();
  if (is_busy_outside_) QApplication::setOverrideCursor(Qt::ArrowCursor);
}

modal_run::~modal_run() {
  if (is_busy_outside_) QApplication::restoreOverrideCursor();
  begin_turn();
}

}  // namespace platform
