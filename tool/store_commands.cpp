#include "tool/store_commands.h"

#include <algorithm>
#include <array>
#include <exception>
#include <stdexcept>
#include <string>

#include "tool/command_line.h"
#include "tool/embedded_scripts.h"
#include "tool/held_signals.h"
#include "tool/help.h"
#include "tool/progress.h"
#include "tool/store_check.h"
#include "tool/store_copy.h"
#include "tool/store_json.h"
#include "tool/store_maker.h"
#include "tool/store_print.h"
#include "tool/store_repair.h"
#include "tool/store_rows.h"

namespace rule_store {
namespace {

enum exit_code { done = 0, failed = 1, called_wrongly = 2, faults_found = 3 };

/// One call of a command.
struct call {
  const given_arguments& given;
  std::ostream& stream;
  progress_line& line;

  /// For the command's own text, which takes the place of the line that tells how far it is.
  [[nodiscard]] std::ostream& output() const {
    line.clear();
    return stream;
  }
  [[nodiscard]] const std::string& store() const { return given.others()[1]; }
  [[nodiscard]] progress tell() const {
    return [this](const std::string& doing) { line.show(doing); };
  }
};

/// One command of the tool; it may fail by an exception.
struct command {
  std::string_view name;
  std::size_t stores;
  std::array<std::string_view, 2> options;
  const help_text& help;
  exit_code (*run)(const call& call);
};

/// Hands over what was written so far. Raises if anything of it could not be: a full disk, say.
void flush(std::ostream& output) {
  if (!output.flush()) throw std::runtime_error("the output could not be written");
}

exit_code init(const call& call) {
  make_store(call.store(), call.given.has("--sample") ? content::sample : content::empty);
  return done;
}

exit_code repair(const call& call) {
  bool is_clean = false;
  // Told before it counts, so that nothing changes of which nobody hears.
  const auto report = [&](const repair_result& result) {
    for (const std::string& mended : result.mended) call.output() << "mended: " << mended << '\n';
    for (const std::string& fault : result.faults) call.output() << fault << '\n';
    flush(call.output());
    is_clean = result.faults.empty();
  };
  repair_store(connect_string_of(call.store()), report, call.tell());
  return is_clean ? done : faults_found;
}

exit_code check(const call& call) {
  if (call.given.has("--repair")) return repair(call);
  const store_rows rows = read_store(connect_string_of(call.store()), call.tell());
  call.line.show("checking");
  const auto faults = faults_of(rows);
  for (const std::string& fault : faults) call.output() << fault << '\n';
  return faults.empty() ? done : faults_found;
}

exit_code print(const call& call) {
  const std::string connect_string = connect_string_of(call.store());
  if (call.given.has("--json")) {
    const table_rows tables = read_rows(connect_string, call.tell());
    print_json(tables, call.output());
    return done;
  }
  const store_rows rows = read_store(connect_string, call.tell());
  print_store(rows, call.given.has("--keys") ? key_display::shown : key_display::hidden,
              call.output());
  return done;
}

exit_code copy(const call& call) {
  const held_signals signals;
  const progress tell = [&](const std::string& doing) {
    call.line.show(doing);
    if (!held_signals::any()) return;
    call.line.clear();
    throw std::runtime_error("interrupted");
  };
  const auto report = copy_store(connect_string_of(call.store()), call.given.others()[2], tell);
  for (const std::string& row : report.unfit) call.output() << row << '\n';
  if (!report.unfit.empty()) throw std::runtime_error("nothing was copied");
  for (const std::string& fault : report.faults)
    call.output() << "as in the source: " << fault << '\n';
  return done;
}

constexpr std::array commands = {command{"init", 1, {"--sample"}, init_help, init},
                                 command{"check", 1, {"--repair"}, check_help, check},
                                 command{"print", 1, {"--keys", "--json"}, print_help, print},
                                 command{"copy", 2, {}, copy_help, copy}};

void show_help(std::ostream& output) {
  output << "Usage: rule_store COMMAND STORE [OPTION...]\n"
            "Makes, checks, prints and copies the stores of replacement definitions.\n\n"
            "Commands:\n";
  for (const command& known : commands) {
    output << "  " << known.name << ' ' << known.help.arguments << "\n                  "
           << known.help.summary << '\n';
  }
  output << common_help;
}

void show_help(const command& wanted, std::ostream& output) {
  output << "Usage: rule_store " << wanted.name << ' ' << wanted.help.arguments << '\n'
         << wanted.help.details << common_help;
}

const command* command_named(const given_arguments& given) {
  if (given.others().empty()) return nullptr;
  const auto found = std::ranges::find(commands, given.others().front(), &command::name);
  return found == commands.end() ? nullptr : &*found;
}

void check_arguments(const command& wanted, const given_arguments& given) {
  given.allow_only(std::array{wanted.options[0], wanted.options[1], std::string_view("--quiet")});
  if (given.has("--keys") && given.has("--json"))
    throw usage_error("--json has the keys of all rows already");
  const auto stores = std::span(given.others()).subspan(1);
  if (stores.size() != wanted.stores || std::ranges::find(stores, "") != stores.end())
    throw usage_error(wanted.stores == 1 ? "one store must be named" : "two stores must be named");
}

exit_code run(const given_arguments& given, std::ostream& output, std::ostream* terminal) {
  const command* const wanted = command_named(given);
  if (given.has("--help")) {
    wanted ? show_help(*wanted, output) : show_help(output);
    return done;
  }
  if (given.has("--version")) {
    output << "rule_store " << version << '\n';
    return done;
  }
  if (!wanted)
    throw usage_error(given.others().empty() ? "a command is missing" : "unknown command");
  check_arguments(*wanted, given);
  progress_line line(given.has("--quiet") ? nullptr : terminal);
  return wanted->run({given, output, line});
}

void explain_usage(const given_arguments& given, const char* fault, std::ostream& errors) {
  const command* const wanted = command_named(given);
  const std::string name = "rule_store" + (wanted ? ' ' + std::string(wanted->name) : "");
  errors << name << ": " << fault << '\n';
  if (wanted) errors << "Usage: " << name << ' ' << wanted->help.arguments << '\n';
  errors << "Try '" << name << " --help'.\n";
}

}  // namespace

int run_command(std::span<const std::string_view> arguments, std::ostream& output,
                std::ostream& errors, std::ostream* terminal) {
  const given_arguments given(arguments);
  try {
    const exit_code code = run(given, output, terminal);
    flush(output);
    return code;
  } catch (const usage_error& wrong) {
    explain_usage(given, wrong.what(), errors);
    return called_wrongly;
  } catch (const std::exception& failure) {
    errors << "rule_store: " << failure.what() << '\n';
    return failed;
  }
}

}  // namespace rule_store
