#pragma once

#include "store_faults.h"

struct sqlite3;

namespace harness {

/// Has an SQLite store refuse one statement, whichever it is, of the connections that are opened
/// during this object's life: a write by a trigger, a read as interrupted, a commit as the engine
/// refuses one. There is one such object at a time.
class statement_faults : public store_faults {
 public:
  explicit statement_faults(test_store& store);
  ~statement_faults() override;

  void fail(int number) override;
  [[nodiscard]] int seen() const override { return seen_; }
  [[nodiscard]] std::string failed() const override { return refused_; }
  [[nodiscard]] bool tells(const std::string& text) const override;

 private:
  struct callbacks;

  int wanted_ = 0;
  int seen_ = 0;
  std::string running_;
  bool refuse_write_ = false;
  bool refuse_commit_ = false;
  std::string refused_;
};

}  // namespace harness
