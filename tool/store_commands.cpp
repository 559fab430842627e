#include "tool/store_commands.h"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>

#include "tool/store_check.h"
#include "tool/store_copy.h"
#include "tool/store_maker.h"
#include "tool/store_print.h"
#include "tool/store_repair.h"
#include "tool/store_rows.h"

namespace rule_store {
namespace {

using argument_list = std::span<const std::string_view>;

/// One command of the tool. `run` gives the exit code, or none if the arguments don't fit; it may
/// fail by an exception.
struct command {
  std::string_view name;
  std::string_view usage;
  std::optional<int> (*run)(argument_list arguments, std::ostream& output, std::ostream& errors);
  int code_of_failure = 1;
};

/// What a command works on, and whether its one option was given.
struct store_and_option {
  std::string store;
  bool has_option;
};

std::optional<store_and_option> read_arguments(argument_list arguments, std::string_view option) {
  const auto found = std::ranges::find(arguments, option);
  const bool has_option = found != arguments.end();
  if (arguments.size() != (has_option ? 2U : 1U)) return std::nullopt;
  const std::string_view store = arguments[found == arguments.begin() ? arguments.size() - 1 : 0];
  if (store.empty() || store.starts_with("--")) return std::nullopt;
  return store_and_option{std::string(store), has_option};
}

/// Hands over what was written so far. Raises if anything of it could not be: a full disk, say.
void flush(std::ostream& output) {
  if (!output.flush()) throw std::runtime_error("the output could not be written");
}

std::optional<int> init(argument_list arguments, std::ostream&, std::ostream&) {
  const auto given = read_arguments(arguments, "--sample");
  if (!given) return std::nullopt;
  make_store(given->store, given->has_option ? content::sample : content::empty);
  return 0;
}

int repair(const std::string& store, std::ostream& output) {
  bool is_clean = false;
  // Told before it counts, so that nothing changes of which nobody hears.
  repair_store(store, [&](const repair_result& result) {
    for (const std::string& done : result.mended) output << "mended: " << done << '\n';
    for (const std::string& fault : result.faults) output << fault << '\n';
    flush(output);
    is_clean = result.faults.empty();
  });
  return is_clean ? 0 : 1;
}

std::optional<int> check(argument_list arguments, std::ostream& output, std::ostream&) {
  const auto given = read_arguments(arguments, "--repair");
  if (!given) return std::nullopt;
  if (given->has_option) return repair(given->store, output);
  const auto faults = faults_of(read_store(given->store));
  for (const std::string& fault : faults) output << fault << '\n';
  return faults.empty() ? 0 : 1;
}

std::optional<int> print(argument_list arguments, std::ostream& output, std::ostream&) {
  const auto given = read_arguments(arguments, "--keys");
  if (!given) return std::nullopt;
  print_store(read_store(given->store),
              given->has_option ? key_display::shown : key_display::hidden, output);
  return 0;
}

std::optional<int> copy(argument_list arguments, std::ostream& output, std::ostream& errors) {
  const bool fits = arguments.size() == 2 && std::ranges::none_of(arguments, [](auto argument) {
                      return argument.empty() || argument.starts_with("--");
                    });
  if (!fits) return std::nullopt;
  const auto report = copy_store(std::string(arguments[0]), std::string(arguments[1]),
                                 [&](std::size_t done, std::size_t all) {
                                   errors << done << " of " << all << " rows copied" << std::endl;
                                 });
  for (const std::string& row : report.unfit) output << row << '\n';
  if (!report.unfit.empty()) throw std::runtime_error("nothing was copied");
  for (const std::string& fault : report.faults) output << "as in the source: " << fault << '\n';
  return 0;
}

constexpr std::array commands = {
    command{
        "init",
        "rule_store init FILE|CONNECT_STRING [--sample]\n"
        "    makes the store FILE, which must not exist, or the tables of a store in the database\n"
        "    of a server, which must not have them; with the sample definitions if wished. A text\n"
        "    with \"=\" or \";\" in it is a connection string\n",
        init},
    command{
        "check",
        "rule_store check CONNECT_STRING [--repair]\n"
        "    writes what breaks the shape of the store, a line each; exit status 0 if nothing "
        "does,\n"
        "    1 if anything does, 2 if the store can't be read. It only reads. With --repair it "
        "first\n"
        "    mends what no window shows, all or nothing, and writes what it did: folders and\n"
        "    definitions of a missing folder come back under the root; rule rows without a\n"
        "    definition or a parent go with all below them, as do lines of no condition; counters\n"
        "    that lag are raised. The exit status is then about what is left\n",
        check, 2},
    command{
        "print",
        "rule_store print CONNECT_STRING [--keys]\n"
        "    writes folders, definitions and rules as text to compare, with their keys if wished.\n"
        "    It only reads\n",
        print},
    command{"copy",
            "rule_store copy CONNECT_STRING FILE|CONNECT_STRING\n"
            "    copies a whole store: into a new FILE, or a store of either engine that holds no "
            "rows\n"
            "    yet. One transaction: all of it, or nothing. Rows that the target can't hold are "
            "named,\n"
            "    and faults of the source, which the copy has, too\n",
            copy},
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
    const std::optional<int> code = wanted->run(arguments.subspan(1), output, errors);
    if (!code) return show_usage(errors);
    flush(output);
    return *code;
  } catch (const std::exception& failure) {
    errors << "rule_store: " << failure.what() << '\n';
    return wanted->code_of_failure;
  }
}

}  // namespace rule_store
