#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace rule_store {

/// Runs the command that the arguments name, program name excluded. Gives the exit code: 0 done,
/// 1 failed, 2 called wrongly; of a check 0 clean, 1 faults found, 2 failed. Its result goes to
/// `output`, what went wrong to `errors` (both UTF-8).
[[nodiscard]] int run_command(std::span<const std::string_view> arguments, std::ostream& output,
                              std::ostream& errors);

}  // namespace rule_store
