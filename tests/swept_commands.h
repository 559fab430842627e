#pragma once

#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace harness {

/// What a user does for one command: in each window the next step towards the goal, once more if it
/// failed.
struct swept_command {
  std::string name;
  std::string window;  ///< the one whose step is the command: nothing fails on the way there
  std::string goal;    ///< a select that gives 1 once the command has been done, and 0 before
  std::map<std::string, std::function<void()>> steps;  ///< by the windows' names
  bool takes_rows_away = false;
  bool is_whole = false;  ///< a condition dialog
};

inline void PrintTo(const swept_command& command, std::ostream* out) {
  *out << command.name;
}

/// Each command of the browser, the editor and the dialogs, on the common rules.
[[nodiscard]] std::vector<swept_command> swept_commands();

}  // namespace harness
