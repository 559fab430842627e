#include "tool/held_signals.h"

#include <csignal>
#include <initializer_list>

namespace rule_store {
namespace {

volatile std::sig_atomic_t waiting = 0;

void hold(int signal) {
  waiting = signal;
}

// Not those that were ignored before, as under nohup.
void hand_over(void (*from)(int), void (*to)(int), unsigned flags) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction now = {};
    sigaction(signal, nullptr, &now);
    if (now.sa_handler != from) continue;
    struct sigaction then = {};
    then.sa_handler = to;
    then.sa_flags = static_cast<int>(flags);
    sigaction(signal, &then, nullptr);
  }
}

}  // namespace

held_signals::held_signals() {
  waiting = 0;
  hand_over(SIG_DFL, hold, SA_RESETHAND | SA_RESTART);
}

held_signals::~held_signals() {
  hand_over(hold, SIG_DFL, 0);
  if (waiting != 0) std::raise(waiting);
}

bool held_signals::any() {
  return waiting != 0;
}

}  // namespace rule_store
