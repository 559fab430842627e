#pragma once

#include <functional>
#include <ostream>
#include <string>

namespace rule_store {

/// Hears from time to time what a long command is doing. If it raises, the command fails.
using progress = std::function<void(const std::string& doing)>;
/// For a command of which nobody hears.
inline const progress untold = [](const std::string&) {};

/// One line of a terminal that tells what is being done, until it is cleared for something else.
class progress_line {
 public:
  /// Without a terminal nothing is told.
  explicit progress_line(std::ostream* terminal) : terminal_(terminal) {}
  progress_line(const progress_line&) = delete;
  progress_line& operator=(const progress_line&) = delete;
  ~progress_line() { clear(); }

  void show(const std::string& text);
  void clear();

 private:
  std::ostream* terminal_;
  std::size_t length_ = 0;  ///< of what the line shows
};

}  // namespace rule_store
