#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "store_faults.h"

namespace harness {
namespace {

class full_disks : public store_faults {
 public:
  // SQLite lets the system calls of its files be put in place of by others, none for its own.
  full_disks() {
    only = this;
    write_by(reinterpret_cast<sqlite3_syscall_ptr>(write_while_there_is_room));
  }
  ~full_disks() override { write_by(nullptr); }

  void fail(int number) override {
    wanted_ = number;
    seen_ = 0;
    is_full_ = false;
  }
  void mend() override { is_full_ = false; }
  [[nodiscard]] int seen() const override { return seen_; }
  [[nodiscard]] std::string failed() const override {
    return has_failed_ ? "a write that needs room" : "";
  }
  [[nodiscard]] bool tells(const std::string& text) const override {
    return text == "database or disk is full";
  }

 private:
  static void write_by(sqlite3_syscall_ptr call) {
    sqlite3_vfs* const files = sqlite3_vfs_find(nullptr);
    files->xSetSystemCall(files, "pwrite64", call);
  }
  static ssize_t write_while_there_is_room(int file, const void* bytes, size_t count,
                                           off64_t place) {
    struct stat64 status {};
    if (::fstat64(file, &status) != 0) return -1;
    const bool grows = place + static_cast<off64_t>(count) > status.st_size;
    if (grows && !only->has_room()) return errno = ENOSPC, -1;
    return ::pwrite64(file, bytes, count, place);
  }
  bool has_room() {
    if (++seen_ == wanted_) is_full_ = has_failed_ = true;
    return !is_full_;
  }

  static inline full_disks* only = nullptr;
  int wanted_ = 0;
  int seen_ = 0;
  bool is_full_ = false;
  bool has_failed_ = false;
};

}  // namespace

std::unique_ptr<store_faults> full_disk() {
  return std::make_unique<full_disks>();
}

}  // namespace harness
