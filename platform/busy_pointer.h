#pragma once

namespace platform {

/// While it lives the pointer shows that the program works. Clicks and keys that come meanwhile go
/// nowhere: they were meant for a window that the user didn't see yet.
class busy_pointer {
 public:
  busy_pointer();
  busy_pointer(const busy_pointer&) = delete;
  busy_pointer& operator=(const busy_pointer&) = delete;
  ~busy_pointer();
};

}  // namespace platform
