#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "store/connection_string.h"

namespace ADODB {

/// The name by which SQLite opens the existing file at `path` (UTF-8), which may be a "file:" name.
/// Raises Error if there is no such file.
[[nodiscard]] std::string sqlite_name_of(const std::string& path, access access);

/// Remembers which file lies at the path of a store when this object is made. SQLite would go on
/// writing to a file that was taken from its path since, and what it writes there is lost.
class store_place {
 public:
  explicit store_place(const std::string& path);

  /// False if the file was renamed, deleted or replaced since.
  [[nodiscard]] bool has_same_file() const;
  /// The same of the log in WAL mode, which may appear later.
  [[nodiscard]] bool has_same_log();

 private:
  using identity = std::optional<std::pair<dev_t, ino_t>>;
  static identity identity_of(const std::filesystem::path& path);

  std::filesystem::path file_;
  std::filesystem::path log_;
  identity known_file_;
  identity known_log_;
};

}  // namespace ADODB
