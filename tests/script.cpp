#include "script.h"

#include <exception>
#include <utility>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace harness {
namespace {

constexpr std::size_t stack_size = 1 << 20;
script* begun = nullptr;  // a new stack begins in a function without arguments

}  // namespace

script::script(std::function<void()> body) : body_(std::move(body)), stack_(new char[stack_size]) {
  getcontext(&own_.context);
  own_.context.uc_stack.ss_sp = stack_.get();
  own_.context.uc_stack.ss_size = own_.size = stack_size;
  own_.bottom = stack_.get();
  makecontext(&own_.context, begin, 0);
}

void script::begin() {
  begun->run();
}

void script::run() {
#ifdef __SANITIZE_ADDRESS__
  __sanitizer_finish_switch_fiber(nullptr, &caller_.bottom, &caller_.size);
#endif
  try {
    body_();
  } catch (...) {
    failure_ = std::current_exception();
  }
  has_ended_ = true;
  change(own_, caller_);
}

void script::change(side& from, side& to) {
#ifdef __SANITIZE_ADDRESS__
  __sanitizer_start_switch_fiber(&from.fake_stack, to.bottom, to.size);
#endif
  swapcontext(&from.context, &to.context);
#ifdef __SANITIZE_ADDRESS__
  __sanitizer_finish_switch_fiber(from.fake_stack, &to.bottom, &to.size);
#endif
}

void script::go_on() {
  begun = this;
  is_running_ = true;
  change(caller_, own_);
  is_running_ = false;
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void script::pause() {
  change(own_, caller_);
}

}  // namespace harness
