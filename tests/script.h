#pragma once

#include <ucontext.h>

#include <functional>
#include <memory>

namespace harness {

/// A function with a stack of its own, which can stop in the middle and go on later. So a test can
/// be written from top to bottom although each modal window runs an event loop of its own, inside
/// the press that opened it.
class script {
 public:
  explicit script(std::function<void()> body);
  script(const script&) = delete;
  script& operator=(const script&) = delete;

  /// Runs the body up to its next pause or to its end. What it throws comes out here.
  void go_on();
  /// For the body itself: stops it until go_on() is called again.
  void pause();
  [[nodiscard]] bool is_running() const { return is_running_; }
  [[nodiscard]] bool has_ended() const { return has_ended_; }

 private:
  /// One of the two sides, with what the address sanitizer wants to know of its stack.
  struct side {
    ucontext_t context;
    void* fake_stack;
    const void* bottom;
    std::size_t size;
  };
  static void begin();
  void run();
  static void change(side& from, side& to);

  std::function<void()> body_;
  std::unique_ptr<char[]> stack_;
  side caller_{};
  side own_{};
  std::exception_ptr failure_;
  bool is_running_ = false;
  bool has_ended_ = false;
};

}  // namespace harness
