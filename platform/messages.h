#pragma once

#include <string_view>

namespace platform {

/// A message box with the title "Quorvi" and an OK button, over the form that runs.
void message(std::string_view text);

/// The same with OK and Cancel; true when OK was pressed.
[[nodiscard]] bool ask(std::string_view text);

}  // namespace platform
