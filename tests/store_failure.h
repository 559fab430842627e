#pragma once

#include <functional>
#include <stdexcept>

#include "store/error.h"

/// The Error that a call raises, which it must.
inline ADODB::Error failure_of(const std::function<void()>& call) {
  try {
    call();
  } catch (const ADODB::Error& failure) {
    return failure;
  }
  throw std::logic_error("the call did not fail");
}
