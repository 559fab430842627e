#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace bench {

/// A new folder that nobody else uses.
inline std::filesystem::path make_temporary_folder() {
  std::string pattern =
      (std::filesystem::temp_directory_path() / "vorlumine_bench_XXXXXX").string();
  return ::mkdtemp(pattern.data());
}

}  // namespace bench
