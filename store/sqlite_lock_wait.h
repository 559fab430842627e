#pragma once

#include <sqlite3.h>

#include <chrono>
#include <optional>

#include "store/waiting.h"

namespace ADODB {

/// What one connection does while another program's lock holds it up: it tries again until a limit
/// is over or the user ends the wait, and the statement is then refused as busy.
class sqlite_lock_wait {
 public:
  sqlite_lock_wait(wait_display display, std::chrono::milliseconds limit);
  sqlite_lock_wait(const sqlite_lock_wait&) = delete;
  sqlite_lock_wait& operator=(const sqlite_lock_wait&) = delete;
  ~sqlite_lock_wait() = default;

  /// The connection calls this object from now on, which must outlive it.
  void serve(sqlite3* database);

  /// While the wait is shown, windows are drawn; the connection takes no other statement then.
  [[nodiscard]] bool is_shown() const { return is_shown_; }

  /// Lives while a call of SQLite runs that may meet a lock. What is shown of the wait goes with
  /// it.
  class call {
   public:
    explicit call(sqlite_lock_wait& wait) : wait_(wait) {}
    call(const call&) = delete;
    call& operator=(const call&) = delete;
    ~call() { wait_.patience_.reset(); }

   private:
    sqlite_lock_wait& wait_;
  };

 private:
  static int try_again(void* self, int tries);
  [[nodiscard]] bool goes_on(int tries);

  wait_display display_;
  std::chrono::milliseconds limit_;
  std::optional<patience> patience_;
  bool is_shown_ = false;
};

}  // namespace ADODB
