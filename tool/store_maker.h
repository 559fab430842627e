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

}  // namespace rule_store
