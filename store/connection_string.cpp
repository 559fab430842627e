#include "store/connection_string.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "store/error.h"
#include "store/text.h"

namespace ADODB {
namespace {

const std::map<std::string, std::vector<std::string_view>>& keys_of_drivers() {
  static const std::map<std::string, std::vector<std::string_view>> keys = {
      {"sqlite", {"database", "locktimeout"}},
      {"postgresql",
       {"server", "port", "database", "uid", "pwd", "sslmode", "sslrootcert", "service",
        "connecttimeout", "statementtimeout", "locktimeout"}},
  };
  return keys;
}

[[noreturn]] void refuse(const std::string& text) {
  throw Error(failure_kind::other, "connection string: " + text);
}

bool is_limit(std::string_view seconds) {
  constexpr std::size_t most_digits = 4;
  if (seconds.empty() || seconds.size() > most_digits) return false;
  if (!std::ranges::all_of(seconds, is_digit)) return false;
  const int number = std::stoi(std::string(seconds));
  return number >= 1 && number <= 3600;
}

/// Takes the entries from a text, one after the other.
class entry_reader {
 public:
  explicit entry_reader(std::string_view text) : rest_(text) { skip_empty_entries(); }

  [[nodiscard]] bool at_end() const { return rest_.empty(); }
  [[nodiscard]] std::string entry_number() const { return "entry " + std::to_string(number_); }

  std::pair<std::string, std::string> next() {
    ++number_;
    const std::size_t end_of_key = rest_.find_first_of("=;");
    if (end_of_key == std::string_view::npos || rest_[end_of_key] == ';')
      refuse(entry_number() + " is not of the form Key=value");
    std::string key = lower(trimmed(rest_.substr(0, end_of_key)));
    rest_.remove_prefix(end_of_key + 1);
    std::string value = trimmed(rest_).starts_with('{') ? braced_value() : plain_value();
    skip_empty_entries();
    return {std::move(key), std::move(value)};
  }

 private:
  void skip_empty_entries() {
    const std::size_t start = rest_.find_first_not_of("; \t\r\n");
    rest_.remove_prefix(std::min(start, rest_.size()));
  }

  std::string plain_value() {
    const std::string_view value = rest_.substr(0, rest_.find(';'));
    rest_.remove_prefix(value.size());
    return std::string(trimmed(value));
  }

  std::string braced_value() {
    rest_.remove_prefix(rest_.find('{') + 1);
    std::string value;
    while (true) {
      const std::size_t brace = rest_.find('}');
      if (brace == std::string_view::npos) refuse(entry_number() + " has no closing brace");
      value += rest_.substr(0, brace);
      rest_.remove_prefix(brace + 1);
      if (!rest_.starts_with('}')) break;
      value += '}';
      rest_.remove_prefix(1);
    }
    if (!plain_value().empty()) refuse(entry_number() + " goes on behind its closing brace");
    return value;
  }

  std::string_view rest_;
  std::size_t number_ = 0;
};

}  // namespace

connection_settings read_connection_string(std::string_view text) {
  std::map<std::string, std::string> values;
  std::map<std::string, std::string> named_in;
  for (entry_reader entries(text); !entries.at_end();) {
    auto [key, value] = entries.next();
    if (!values.try_emplace(key, std::move(value)).second)
      refuse(entries.entry_number() + " repeats a key");
    named_in[key] = entries.entry_number();
  }
  if (values.empty()) refuse("it is empty");
  const auto driver = values.extract("driver");
  if (driver.empty()) refuse("it names no Driver");
  connection_settings settings{lower(driver.mapped()), std::move(values)};

  const auto known = keys_of_drivers().find(settings.driver);
  if (known == keys_of_drivers().end())
    refuse(named_in["driver"] + " names an unknown driver; known are SQLite and PostgreSQL");
  for (const auto& [key, value] : settings.values)
    if (std::ranges::find(known->second, key) == known->second.end())
      refuse(named_in[key] + " has a key that this driver does not know");
  for (const auto& [key, value] : settings.values)
    if (key.ends_with("timeout") && !is_limit(value))
      refuse(named_in[key] + " is no whole number of seconds from 1 to 3600");
  // The file of services may name the database.
  if (!settings.values.contains("service") && settings.values["database"].empty())
    refuse("it names no Database");
  return settings;
}

time_limits limits_of(const connection_settings& settings) {
  time_limits limits;
  for (const auto& [key, limit] : {std::pair{"connecttimeout", &limits.connecting},
                                   {"statementtimeout", &limits.statement},
                                   {"locktimeout", &limits.lock}}) {
    const auto given = settings.values.find(key);
    if (given != settings.values.end()) *limit = std::chrono::seconds(std::stoi(given->second));
  }
  return limits;
}

}  // namespace ADODB
