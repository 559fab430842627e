#include "store/sqlite_lock_wait.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace ADODB {
namespace {

using std::chrono::milliseconds;

// Most locks are gone in no time.
milliseconds pause_before(int tries) {
  constexpr milliseconds longest(50);
  return std::min(longest, milliseconds(1 + 3 * tries));
}

}  // namespace

sqlite_lock_wait::sqlite_lock_wait(wait_display display, milliseconds limit)
    : display_(std::move(display)), limit_(limit) {}

void sqlite_lock_wait::serve(sqlite3* database) {
  sqlite3_busy_handler(database, try_again, this);
}

// No failure may cross SQLite: one of the display ends the wait.
int sqlite_lock_wait::try_again(void* self, int tries) {
  auto& wait = *static_cast<sqlite_lock_wait*>(self);
  try {
    return wait.goes_on(tries) ? 1 : 0;
  } catch (...) {
    wait.is_shown_ = false;
    return 0;
  }
}

// SQLite begins to count anew with each step, but not where it prepares: that goes on from the last
// step's number, though its call has ended.
bool sqlite_lock_wait::goes_on(int tries) {
  if (tries == 0 || !patience_) patience_.emplace(awaited::lock, display_, limit_);
  std::this_thread::sleep_for(std::min(pause_before(tries), patience_->next_piece()));
  is_shown_ = true;
  const patience::state state = patience_->look();
  is_shown_ = false;
  return state == patience::state::waits;
}

}  // namespace ADODB
