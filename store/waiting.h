#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace ADODB {

enum class awaited { connection, answer, lock };

/// Shows the user, as long as it lives, that the program waits for the store.
class shown_wait {
 public:
  shown_wait() = default;
  shown_wait(const shown_wait&) = delete;
  shown_wait& operator=(const shown_wait&) = delete;
  virtual ~shown_wait() = default;

  /// Called some ten times a second. False once the user wants to wait no longer. It must not get
  /// another command on its way: the store refuses any until the wait is over.
  [[nodiscard]] virtual bool goes_on() = 0;
};

/// Begins to show a wait that takes longer than a moment. Empty: waits are not shown.
using wait_display = std::function<std::unique_ptr<shown_wait>(awaited)>;

/// One wait up to a limit, in pieces so short that it can be shown meanwhile.
class patience {
 public:
  enum class state { waits, is_over, was_ended_by_user };

  patience(awaited what, wait_display display, std::chrono::milliseconds limit);

  /// How long to wait next.
  [[nodiscard]] std::chrono::milliseconds next_piece() const;
  /// To be asked after a piece in vain. A display that fails ends the wait as the user would.
  [[nodiscard]] state look();
  /// From here on up to another limit, without the user.
  void go_on_unseen(std::chrono::milliseconds limit);

 private:
  awaited what_;
  wait_display display_;
  std::chrono::steady_clock::time_point begin_;
  std::chrono::steady_clock::time_point end_;
  std::unique_ptr<shown_wait> shown_;
};

}  // namespace ADODB
