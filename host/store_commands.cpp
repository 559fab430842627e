#include "host/store_commands.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include "host/store_maker.h"

namespace rule_store {
namespace {

using argument_list = std::span<const std::string_view>;

/// One command of the tool. `run` gives false if the arguments behind its name don't fit.
struct command {
  std::string_view name;
  std::string_view usage;
  bool (*run)(argument_list arguments);
};

bool init(argument_list arguments) {
  const bool with_sample = arguments.size() == 2 && arguments[1] == "--sample";
  if (arguments.size() != 1 && !with_sample) return false;
  if (arguments[0].empty() || arguments[0].starts_with("--")) return false;
  make_store(std::string(arguments[0]), with_sample ? content::sample : content::empty);
  return true;
}

constexpr std::array commands = {
    command{
        "init",
        "rule_store init FILE [--sample]\n"
        "    makes the store FILE, which must not exist, with the sample definitions if wished\n",
        init},
};

int show_usage(std::ostream& errors) {
  errors << "usage:\n";
  for (const command& known : commands) errors << "  " << known.usage;
  return 2;
}

}  // namespace

int run_command(argument_list arguments, std::ostream& errors) {
  if (arguments.empty()) return show_usage(errors);
  const auto wanted = std::ranges::find(commands, arguments.front(), &command::name);
  if (wanted == commands.end()) return show_usage(errors);
  try {
    return wanted->run(arguments.subspan(1)) ? 0 : show_usage(errors);
  } catch (const std::exception& failure) {
    errors << "rule_store: " << failure.what() << '\n';
    return 1;
  }
}

}  // namespace rule_store
