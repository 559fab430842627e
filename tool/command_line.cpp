#include "tool/command_line.h"

#include <algorithm>

#include "store/text.h"

namespace rule_store {
namespace {

/// As much of it as can only be a name.
std::string name_in(std::string_view argument) {
  const auto end = std::ranges::find_if_not(
      argument, [](char letter) { return letter == '-' || ADODB::is_letter(letter); });
  return {argument.begin(), end};
}

}  // namespace

given_arguments::given_arguments(std::span<const std::string_view> arguments) {
  bool may_be_option = true;
  for (const std::string_view argument : arguments) {
    if (may_be_option && argument == "--") {
      may_be_option = false;
    } else if (may_be_option && argument.size() > 1 && argument.front() == '-') {
      options_.push_back(argument == "-h"   ? "--help"
                         : argument == "-q" ? "--quiet"
                                            : std::string(argument));
    } else {
      others_.emplace_back(argument);
    }
  }
}

bool given_arguments::has(std::string_view option) const {
  return std::ranges::find(options_, option) != options_.end();
}

void given_arguments::allow_only(std::span<const std::string_view> options) const {
  for (const std::string& option : options_)
    if (std::ranges::find(options, option) == options.end())
      throw usage_error("unknown option " + name_in(option));
}

}  // namespace rule_store
