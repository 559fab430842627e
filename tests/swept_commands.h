#pragma once

#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace harness {

/// What a user does for one command: in each window the next deed towards the goal, once more if it
/// failed.
struct swept_command {
  std::string name;
  std::string window;  ///< the one whose deed is the command: nothing fails on the way there
  std::string goal;    ///< a select that gives 1 once the command has been done, and 0 before
  std::map<std::string, std::function<void()>> deeds;  ///< by the windows' names
  bool takes_rows_away = false;
  bool is_whole = false;  ///< a condition dialog
};

inline void PrintTo(const swept_command& command, std::ostream* out) {
  *out << command.name;
}

/// The store that the commands are for, as statements over empty tables.
extern const std::vector<std::string> swept_rows;

/// Each command of the browser, the editor and the dialogs.
[[nodiscard]] std::vector<swept_command> swept_commands();

}  // namespace harness
