#pragma once

#include <memory>

namespace platform {

/// The toolkit's application for as long as windows run: the host's if there is one, else one of
/// its own, which goes away with this object. Speaks Japanese while it lives. If the host quits
/// meanwhile, the windows are left, and the application quits when this object has gone. Raises
/// std::runtime_error where the calling thread can show no window.
class application {
 public:
  application();
  application(const application&) = delete;
  application& operator=(const application&) = delete;
  ~application();

  /// Once the windows have gone: raises what an event of the host's has raised under them.
  void rethrow_hosts_failure();

 private:
  class parts;
  std::unique_ptr<parts> parts_;
};

}  // namespace platform
