#include <exception>

#include "platform/form.h"
#include "platform/messages.h"

namespace platform {

void Form::guarded(const std::function<void()>& event) {
  try {
    event();
    return;
  } catch (const std::exception& failure) {
    message(failure.what());
  } catch (...) {
    message("予期しないエラーが発生しました。");
  }
  if (!on_failure || !loaded() || unloading_) return;
  try {
    on_failure();
  } catch (...) {
    // The user has just read why; a store that still refuses leaves the view as it is.
  }
}

}  // namespace platform
