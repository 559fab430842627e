#include "platform/shown_failures.h"

#include "platform/busy_pointer.h"
#include "platform/form.h"
#include "platform/messages.h"

namespace platform {
namespace {

std::string own_text(const std::exception& failure) {
  return failure.what();
}

std::string (*words_of)(const std::exception&) = own_text;

}  // namespace

void word_failures_by(std::string (*words)(const std::exception& failure)) {
  words_of = words;
}

void Form::guarded(const std::function<void()>& event) {
  const event_run run;
  try {
    event();
    return;
  } catch (const std::exception& failure) {
    message(words_of(failure));
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
