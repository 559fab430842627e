#include "full_disk.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace harness {
namespace {

using system_call = sqlite3_syscall_ptr;

int wanted = 0;
int seen_growths = 0;
bool is_full = false;
bool has_failed = false;

ssize_t write_while_there_is_room(int file, const void* bytes, size_t count, off64_t place) {
  struct stat64 status {};
  if (::fstat64(file, &status) != 0) return -1;
  if (place + static_cast<off64_t>(count) > status.st_size) {
    if (++seen_growths == wanted) is_full = has_failed = true;
    if (is_full) return errno = ENOSPC, -1;
  }
  return ::pwrite64(file, bytes, count, place);
}

// SQLite lets the system calls of its files be put in place of by others, none for its own.
void write_by(system_call call) {
  sqlite3_vfs* const files = sqlite3_vfs_find(nullptr);
  files->xSetSystemCall(files, "pwrite64", call);
}

}  // namespace

full_disk::full_disk() {
  fail(0);
  has_failed = false;
  write_by(reinterpret_cast<system_call>(write_while_there_is_room));
}

full_disk::~full_disk() {
  write_by(nullptr);
}

void full_disk::fail(int number) {
  wanted = number;
  seen_growths = 0;
  is_full = false;
}

void full_disk::mend() {
  is_full = false;
}

int full_disk::seen() const {
  return seen_growths;
}

std::string full_disk::failed() const {
  return has_failed ? "a write that needs room" : "";
}

bool full_disk::tells(const std::string& text) const {
  return text == "database or disk is full";
}

}  // namespace harness
