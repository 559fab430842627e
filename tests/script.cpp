#include "script.h"

#include <utility>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
constexpr auto leave_stack = __sanitizer_start_switch_fiber;
constexpr auto enter_stack = __sanitizer_finish_switch_fiber;
#else
constexpr auto leave_stack = [](void**, const void*, std::size_t) {};
constexpr auto enter_stack = [](void*, const void**, std::size_t*) {};
#endif

namespace harness {
namespace {

constexpr std::size_t stack_size = 1 << 20;
script* begun = nullptr;  // a new stack begins in a function without arguments

}  // namespace

script::script(std::function<void()> body) : body_(std::move(body)), memory_(new char[stack_size]) {
  getcontext(&own_.context);
  own_.stack = own_.context.uc_stack.ss_sp = memory_.get();
  own_.size = own_.context.uc_stack.ss_size = stack_size;
  makecontext(&own_.context, begin, 0);
}

void script::begin() {
  script& self = *begun;
  enter_stack(nullptr, &self.caller_.stack, &self.caller_.size);
  try {
    self.body_();
  } catch (...) {
    self.failure_ = std::current_exception();
  }
  self.has_ended_ = true;
  self.pause();
}

void script::change(side& from, side& to) {
  void* fake_stack = nullptr;
  leave_stack(&fake_stack, to.stack, to.size);
  swapcontext(&from.context, &to.context);
  enter_stack(fake_stack, &to.stack, &to.size);
}

void script::go_on() {
  begun = this;
  is_running_ = true;
  change(caller_, own_);
  is_running_ = false;
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

}  // namespace harness
