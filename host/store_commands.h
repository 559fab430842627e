#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace rule_store {

/// Runs the command that the arguments name, program name excluded. Gives the exit code: 0 done,
/// 1 failed, 2 called wrongly. What went wrong stands in `errors` (UTF-8).
[[nodiscard]] int run_command(std::span<const std::string_view> arguments, std::ostream& errors);

}  // namespace rule_store
