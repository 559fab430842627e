#include <unistd.h>

#include <iostream>
#include <string_view>
#include <vector>

#include "tool/store_commands.h"

int main(int argc, char* argv[]) {
  const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  std::ostream* const terminal = isatty(STDERR_FILENO) != 0 ? &std::cerr : nullptr;
  return rule_store::run_command(arguments, std::cout, std::cerr, terminal);
}
