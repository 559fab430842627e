#pragma once

#include <functional>
#include <string>
#include <vector>

#include "fault_trial.h"
#include "window_player.h"

class QProcess;

namespace harness {

/// Does one command as a user who answers every question with OK, tries once more when the
/// connection was lost, and leaves at the first refusal.
class paired_user : public window_player {
 public:
  explicit paired_user(const swept_command& command) : command_(command) {}

  /// Before the command's turn of that number, from 1; a turn is whenever a window waits.
  std::function<void()> at_stop;
  int stop = 0;

  void work(const std::string& connect_string, const std::function<bool()>& is_done);

  [[nodiscard]] bool was_stopped() const { return turns_ >= stop; }
  /// A step met nothing to do it on: what it needs is gone from the window.
  [[nodiscard]] bool found_nothing() const { return found_nothing_; }
  [[nodiscard]] bool was_asked() const { return was_asked_; }
  [[nodiscard]] const std::vector<std::string>& messages() const { return messages_; }

 private:
  void take_turn(QWidget& top) override;
  [[nodiscard]] std::string name() const override { return command_.name; }
  void read(QWidget& message);
  void do_step(QWidget& top);

  const swept_command& command_;
  std::function<bool()> is_done_;
  int turns_ = 0;
  bool has_begun_ = false;
  bool leaves_ = false;
  bool tries_again_ = false;
  bool found_nothing_ = false;
  bool was_asked_ = false;
  std::vector<std::string> messages_;  // but for the questions and the word of success
};

/// "--do NAME CONNECT_STRING [STOP [OTHER]]": the command in a process of its own. Prints what the
/// user is told. At a stop given the process kills itself; while it is held there, users of the
/// other command are killed at each of their stops, and one does it whole.
int do_command(const std::vector<std::string>& arguments);

/// Whether it was, as --do does at its stop; one that gives up or crashes was not.
[[nodiscard]] bool was_killed(const QProcess& user);

}  // namespace harness
