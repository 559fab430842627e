#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace rule_store {

/// Runs the command that the arguments name, program name excluded. Gives the exit code: 0 done,
/// 1 failed, 2 called wrongly, 3 faults found by a check. Its result goes to `output`, what went
/// wrong to `errors` (both UTF-8), and to `terminal`, if there is one, how far it is.
[[nodiscard]] int run_command(std::span<const std::string_view> arguments, std::ostream& output,
                              std::ostream& errors, std::ostream* terminal = nullptr);

}  // namespace rule_store
