#pragma once

#include <string>

namespace rule_store {

enum class content { empty, sample };

/// Makes the tables of a store at `place` (UTF-8): the path of a file that is made with them, or a
/// connection string of either driver, which on a server names an existing database. A text with
/// "=", ";" or "://" in it is never taken for a path. Raises
/// ADODB::Error if the file or one of the tables is there already, which stays untouched, and on
/// every failure; nothing half-made stays behind.
void make_store(const std::string& place, content wanted);

/// The connection string of what make_store() takes for a place.
[[nodiscard]] std::string connect_string_of(const std::string& place);

/// The file that `place` names where it does not exist yet; empty if it does, or names none.
[[nodiscard]] std::string missing_file(const std::string& place);

/// Removes a store's file, and those that the engine keeps beside it.
void remove_store_file(const std::string& path);

}  // namespace rule_store
