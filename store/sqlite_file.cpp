#include "store/sqlite_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "store/error.h"
#include "store/text.h"

namespace ADODB {
namespace {

namespace fs = std::filesystem;

/// An absolute name can't be taken for one of the names that SQLite gives a meaning of its own,
/// such as ":memory:".
fs::path existing_file(const std::string& path) {
  std::error_code failure;
  fs::path file = fs::absolute(path, failure);
  const auto status = fs::status(file, failure);
  if (fs::is_directory(status)) failure = std::make_error_code(std::errc::is_a_directory);
  if (failure) throw Error(failure_kind::other, failure.message());
  return file;
}

bool may_write(const fs::path& place) {
  return ::faccessat(AT_FDCWD, place.c_str(), W_OK, AT_EACCESS) == 0;
}

/// Whether the head of the file says so.
bool is_in_wal_mode(const fs::path& file) {
  std::array<char, 20> head{};
  std::ifstream(file, std::ios::binary).read(head.data(), head.size());
  constexpr std::size_t version_for_reading = 19;
  constexpr char wal = 2;
  return head[version_for_reading] == wal;
}

/// Whether the two files of the WAL mode, which whoever uses the store has beside it, are missing.
bool is_at_rest(const fs::path& file) {
  std::error_code failure;
  const auto log_size = fs::file_size(file.string() + "-wal", failure);
  return (failure || log_size == 0) && !fs::exists(file.string() + "-shm", failure);
}

std::string immutable(const std::string& file) {
  std::string name = "file:";
  for (const char byte : file) {
    std::array<char, 4> code{};
    std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned char>(byte));
    name += is_letter(byte) || is_digit(byte) || byte == '/' ? std::string(1, byte) : code.data();
  }
  return name + "?immutable=1";
}

}  // namespace

std::string sqlite_name_of(const std::string& path, access access) {
  const fs::path file = existing_file(path);
  // To read a store in WAL mode SQLite makes two files beside it. Where it can't, or would leave
  // them behind because the store itself can't be written, it is told that nothing changes
  // meanwhile.
  const bool is_fixed = !may_write(file) || !may_write(file.parent_path());
  if (access == access::reading && is_fixed && is_in_wal_mode(file) && is_at_rest(file))
    return immutable(file.string());
  return file.string();
}

// SQLite names the log after the file that a link leads to.
store_place::store_place(const std::string& path)
    : file_(existing_file(path)),
      log_(fs::canonical(file_).string() + "-wal"),
      known_file_(identity_of(file_)) {}

bool store_place::has_same_file() const {
  return identity_of(file_) == known_file_;
}

bool store_place::has_same_log() {
  const identity found = identity_of(log_);
  if (!known_log_) known_log_ = found;
  return found == known_log_;
}

store_place::identity store_place::identity_of(const fs::path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return std::pair(status.st_dev, status.st_ino);
}

}  // namespace ADODB
