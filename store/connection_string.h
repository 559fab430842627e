#pragma once

#include <chrono>
#include <map>
#include <string>
#include <string_view>

#include "store/waiting.h"

namespace ADODB {

/// What a store is opened for. Reading also works on files, folders and servers that can't be
/// written, and changes nothing.
enum class access { reading, writing };

/// A connection string taken apart. Keys are known in any case; `values` holds them in lower case.
struct connection_settings {
  std::string driver;                         ///< "sqlite" or "postgresql"
  std::map<std::string, std::string> values;  ///< every other key of that driver that was given
  access opened_for = access::writing;        ///< not part of the text, like the next one
  wait_display while_waiting = {};
};

/// Reads `Key=value;Key=value`; a value that holds ";" stands in braces: {a;b}. Raises Error on an
/// empty text, no or an unknown driver, a repeated or unknown key, a time limit that is none and a
/// missing Database. The text of a failure names entries by their number, never by content, since
/// that may be a password.
[[nodiscard]] connection_settings read_connection_string(std::string_view text);

/// How long something is waited for.
struct time_limits {
  std::chrono::seconds connecting{5};  ///< for each of several hosts
  std::chrono::seconds statement{10};
  std::chrono::seconds lock{5};  ///< that another program holds
};

/// As the connection string has them, or as they are without its word.
[[nodiscard]] time_limits limits_of(const connection_settings& settings);

}  // namespace ADODB
