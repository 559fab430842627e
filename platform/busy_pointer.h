#pragma once

namespace platform {

/// While it lives the pointer shows that the program works. If that takes longer than a blink,
/// clicks and keys that come meanwhile go nowhere: they were meant for a window that the user
/// didn't see yet. What was typed into a text that keeps the keyboard is typed afterwards.
class busy_pointer {
 public:
  busy_pointer();
  busy_pointer(const busy_pointer&) = delete;
  busy_pointer& operator=(const busy_pointer&) = delete;
  ~busy_pointer();
};

/// Lives while an event of a form runs. If it keeps the windows from answering for longer than a
/// blink, what the user does meanwhile goes nowhere, too.
class event_run {
 public:
  event_run();
  event_run(const event_run&) = delete;
  event_run& operator=(const event_run&) = delete;
  ~event_run();
};

/// Lives while a modal window within the event answers the user, who sees no busy pointer then. It
/// doesn't get what was meant for the window before, either.
class modal_run {
 public:
  modal_run();
  modal_run(const modal_run&) = delete;
  modal_run& operator=(const modal_run&) = delete;
  ~modal_run();

 private:
  bool is_busy_outside_;
};

}  // namespace platform
