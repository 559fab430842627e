#pragma once

#include <memory>

namespace platform {

/// The toolkit's application for as long as windows run: the host's if there is one, else one of
/// its own, which goes away with this object. Speaks Japanese while it lives. Raises
/// std::runtime_error where the calling thread can show no window.
class application {
 public:
  application();
  application(const application&) = delete;
  application& operator=(const application&) = delete;
  ~application();

 private:
  struct parts;
  std::unique_ptr<parts> parts_;
};

}  // namespace platform
