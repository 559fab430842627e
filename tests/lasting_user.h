#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "window_player.h"

namespace harness {

/// Makes folders and conditions by turns until the time is over, each under a text that occurs
/// nowhere else, and goes on whatever a message says: OK once more while the dialog is open. What a
/// dialog that closed or a word of success has told to be stored is printed as "stored TEXT", any
/// other message as "told MESSAGE".
class lasting_user : public window_player {
 public:
  lasting_user(std::string name, std::chrono::seconds time)
      : name_(std::move(name)), end_(std::chrono::steady_clock::now() + time) {}

  void work(const std::string& connect_string);

 private:
  void take_turn(QWidget& top) override;
  [[nodiscard]] std::string name() const override { return name_; }
  void do_step(const std::string& window);
  void go(QWidget& top);
  void read(QWidget& message);
  void tell_stored();
  void next();
  [[nodiscard]] bool is_over() const { return std::chrono::steady_clock::now() > end_; }
  [[nodiscard]] bool makes_folder() const { return number_ % 2 == 0; }

  std::string name_;
  std::chrono::steady_clock::time_point end_;
  int number_ = 0;
  std::string text_;          ///< of what is being made
  bool was_pressed_ = false;  ///< OK, in the folder's dialog
};

/// "--work NAME SECONDS CONNECT_STRING".
int work_command(const std::vector<std::string>& arguments);

}  // namespace harness
