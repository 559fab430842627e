#pragma once

#include <memory>
#include <string_view>

namespace platform {

/// A small window over the one that runs: says for what the program waits, and takes the user's
/// word to wait no longer, by its button or Esc. As long as it lives nothing else takes what the
/// user does, and no window of this program becomes active or loses the keyboard.
class waiting_note {
 public:
  explicit waiting_note(std::string_view text);
  waiting_note(const waiting_note&) = delete;
  waiting_note& operator=(const waiting_note&) = delete;
  ~waiting_note();

  /// Lets the windows be drawn. False once the user wants to wait no longer.
  [[nodiscard]] bool goes_on();

 private:
  struct parts;
  std::unique_ptr<parts> parts_;
};

}  // namespace platform
