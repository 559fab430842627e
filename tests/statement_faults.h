#pragma once

#include <string>

#include "harness.h"

struct sqlite3;

namespace harness {

/// Has an SQLite store refuse one statement, whichever it is, of the connections that are opened
/// during this object's life: a write by a trigger, a read as interrupted, a commit as the engine
/// refuses one. There is one such object at a time.
class statement_faults {
 public:
  explicit statement_faults(test_store& store);
  statement_faults(const statement_faults&) = delete;
  statement_faults& operator=(const statement_faults&) = delete;
  ~statement_faults();

  /// The statement to refuse, counted from here on, from 1; 0 for none.
  void refuse(int number);
  /// How many statements there were since.
  [[nodiscard]] int seen() const { return seen_; }
  /// The statement that was refused, empty so far.
  [[nodiscard]] const std::string& refused() const { return refused_; }
  /// True if the text is one that a refusal brings to the user.
  [[nodiscard]] static bool tells_refusal(const std::string& text);

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
