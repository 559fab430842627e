#include "platform/typed_search.h"

#include <algorithm>

#include "platform/folded_text.h"

namespace platform {
namespace {

constexpr int pause = 1500;  // milliseconds after which typing starts anew

}  // namespace

// Typing on stays at an entry as long as it fits; the same letter once more goes to the next one.
int typed_search::find(const QString& typed, int current, int count,
                       const std::function<QString(int)>& text_of) {
  const bool goes_on = since_last_.isValid() && since_last_.elapsed() < pause;
  const bool again = goes_on && typed_ == folded(typed);
  since_last_.start();
  typed_ = goes_on ? typed_ + folded(typed) : folded(typed);
  if (typed_.isEmpty()) return -1;
  const auto first = [&](int start, bool anywhere) {
    for (int step = 0; step < count; ++step) {
      const int entry = (start + step) % count;
      const QString text = folded(text_of(entry));
      if (anywhere ? text.contains(typed_) : text.startsWith(typed_)) return entry;
    }
    return -1;
  };
  const int here = std::max(0, current);
  const int start = goes_on ? here : current + 1;
  int found = first(start, false);
  if (found < 0) found = first(start, true);
  if (found < 0 && again) {
    typed_ = folded(typed);
    found = first(here + 1, false);
  }
  return found;
}

}  // namespace platform
