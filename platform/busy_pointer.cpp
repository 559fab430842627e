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

void swallow_after_blink() {
  if (steady_clock::now() - last_answer > blink) input_sink().swallow();
}

}  // namespace

busy_pointer::busy_pointer() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
}

busy_pointer::~busy_pointer() {
  input_sink().swallow();
  QApplication::restoreOverrideCursor();
}

event_run::event_run() {
  last_answer = steady_clock::now();
}

event_run::~event_run() {
  swallow_after_blink();
}

modal_run::modal_run() {
  swallow_after_blink();
}

modal_run::~modal_run() {
  last_answer = steady_clock::now();
}

}  // namespace platform
