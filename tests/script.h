#pragma once

#include <ucontext.h>

#include <exception>
#include <functional>
#include <memory>

namespace harness {

/// A function with a stack of its own, which can stop in the middle and go on later. So a test can
/// be written from top to bottom although each modal window runs an event loop of its own, inside
/// the press that opened it.
class script {
 public:
  explicit script(std::function<void()> body);
  /// Runs the body up to its next pause or to its end. What it throws comes out here.
  void go_on();
  /// For the body itself: stops it until go_on() is called again.
  void pause() { change(own_, caller_); }
  [[nodiscard]] bool is_running() const { return is_running_; }
  [[nodiscard]] bool has_ended() const { return has_ended_; }

 private:
  struct side {
    ucontext_t context{};
    const void* stack = nullptr;
    std::size_t size = 0;
  };
  static void begin();
  static void change(side& from, side& to);

  std::function<void()> body_;
  std::unique_ptr<char[]> memory_;
  side caller_, own_;
  std::exception_ptr failure_;
  bool is_running_ = false;
  bool has_ended_ = false;
};

}  // namespace harness
