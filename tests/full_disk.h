#pragma once

#include "store_faults.h"

namespace harness {

/// Lets the disk under this process's SQLite stores be full: the writes that make a file longer are
/// counted, and from the one that fails on every such write does, as the system tells it of a full
/// disk, until room is made by mend(). There is one such object at a time.
class full_disk : public store_faults {
 public:
  full_disk();
  ~full_disk() override;

  void fail(int number) override;
  void mend() override;
  [[nodiscard]] int seen() const override;
  [[nodiscard]] std::string failed() const override;
  [[nodiscard]] bool tells(const std::string& text) const override;
};

}  // namespace harness
