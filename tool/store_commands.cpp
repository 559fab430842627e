#include "tool/store_commands.h"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <string>

#include "tool/store_check.h"
#include "tool/store_maker.h"
#include "tool/store_print.h"
#include "tool/store_rows.h"

namespace rule_store {
namespace {

using argument_list = std::span<const std::string_view>;

/// One command of the tool. `run` gives the exit code, or none if the arguments don't fit; it may
/// fail by an exception.
struct command {
  std::string_view name;
  std::string_view usage;
  std::optional<int> (*run)(argument_list arguments, std::ostream& output);
  int code_of_failure = 1;
};

std::optional<int> init(argument_list arguments, std::ostream&) {
  const bool with_sample = arguments.size() == 2 && arguments[1] == "--sample";
  if (arguments.size() != 1 && !with_sample) return std::nullopt;
  if (arguments[0].empty() || arguments[0].starts_with("--")) return std::nullopt;
  make_store(std::string(arguments[0]), with_sample ? content::sample : content::empty);
  return 0;
}

std::optional<int> check(argument_list arguments, std::ostream& output) {
  if (arguments.size() != 1) return std::nullopt;
  const auto faults = faults_of(read_store(std::string(arguments[0])));
  for (const std::string& fault : faults) output << fault << '\n';
  return faults.empty() ? 0 : 1;
}

std::optional<int> print(argument_list arguments, std::ostream& output) {
  const bool with_keys = arguments.size() == 2 && arguments[1] == "--keys";
  if (arguments.size() != 1 && !with_keys) return std::nullopt;
  print_store(read_store(std::string(arguments[0])),
              with_keys ? key_display::shown : key_display::hidden, output);
  return 0;
}

constexpr std::array commands = {
    command{
        "init",
        "rule_store init FILE|CONNECT_STRING [--sample]\n"
        "    makes the store FILE, which must not exist, or the tables of a store in the database\n"
        "    of a server, which must not have them; with the sample definitions if wished\n",
        init},
    command{
        "check",
        "rule_store check CONNECT_STRING\n"
        "    writes what breaks the shape of the store, a line each; exit status 1 if anything\n",
        check, 2},
    command{
        "print",
        "rule_store print CONNECT_STRING [--keys]\n"
        "    writes folders, definitions and rules as text to compare, with their keys if wished\n",
        print},
};

int show_usage(std::ostream& errors) {
  errors << "usage:\n";
  for (const command& known : commands) errors << "  " << known.usage;
  return 2;
}

}  // namespace

int run_command(argument_list arguments, std::ostream& output, std::ostream& errors) {
  if (arguments.empty()) return show_usage(errors);
  const auto wanted = std::ranges::find(commands, arguments.front(), &command::name);
  if (wanted == commands.end()) return show_usage(errors);
  try {
    const std::optional<int> code = wanted->run(arguments.subspan(1), output);
    return code ? *code : show_usage(errors);
  } catch (const std::exception& failure) {
    errors << "rule_store: " << failure.what() << '\n';
    return wanted->code_of_failure;
  }
}

}  // namespace rule_store
