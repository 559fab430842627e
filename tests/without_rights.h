#pragma once

#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace harness {

/// File modes don't bind root: a test of them goes on as somebody else meanwhile.
class without_rights {
 public:
  without_rights() {
    if (::geteuid() == 0 && ::seteuid(65534) != 0) throw std::runtime_error("seteuid");
  }
  without_rights(const without_rights&) = delete;
  without_rights& operator=(const without_rights&) = delete;
  ~without_rights() {
    if (::seteuid(::getuid()) != 0) std::abort();
  }
};

}  // namespace harness
