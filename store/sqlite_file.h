#pragma once

#include <string>

#include "store/connection_string.h"

namespace ADODB {

/// The name by which SQLite opens the existing file at `path` (UTF-8), which may be a "file:" name.
/// Raises Error if there is no such file.
[[nodiscard]] std::string sqlite_name_of(const std::string& path, access access);

}  // namespace ADODB
