#include "tool/progress.h"

namespace rule_store {

// Written over with blanks: terminals differ in their codes for clearing a line.
void progress_line::show(const std::string& text) {
  if (!terminal_) return;
  const std::size_t longer = length_ > text.size() ? length_ - text.size() : 0;
  *terminal_ << '\r' << text << std::string(longer, ' ') << std::flush;
  length_ = text.size() + longer;
}

void progress_line::clear() {
  if (length_ == 0) return;
  show("");
  *terminal_ << '\r' << std::flush;
  length_ = 0;
}

}  // namespace rule_store
