#pragma once

#include <string>

namespace rule_store {

enum class content { empty, sample };

/// Makes the SQLite store `path` (UTF-8), in WAL mode. Raises ADODB::Error if anything is there
/// already, which stays untouched, and on every failure; a half-made file does not stay behind.
void make_store(const std::string& path, content wanted);

}  // namespace rule_store
