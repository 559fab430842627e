#pragma once

#include <memory>
#include <string>

#include "test_store.h"

namespace harness {

/// One thing going wrong between the program and its store: the occasions for it are counted, and
/// one of them fails. As it stands here nothing does. There is one such object at a time.
class store_faults {
 public:
  store_faults() = default;
  store_faults(const store_faults&) = delete;
  store_faults& operator=(const store_faults&) = delete;
  virtual ~store_faults() = default;

  /// By what the program reaches the store, so that this object can do its work.
  [[nodiscard]] virtual std::string connect_string(const test_store& store) const {
    return store.connect_string();
  }
  /// The occasion that fails, counted from here on, from 1; 0 for none.
  virtual void fail(int) {}
  /// Ends a fault that lasts.
  virtual void mend() {}
  /// How many occasions there were since.
  [[nodiscard]] virtual int seen() const { return 0; }
  /// The statement that failed, or what else did; empty so far.
  [[nodiscard]] virtual std::string failed() const { return {}; }
  /// True if the text is one that the fault brings to the user.
  [[nodiscard]] virtual bool tells(const std::string&) const { return false; }
};

/// SQLite refuses one statement, whichever it is, of the connections that are opened from now on: a
/// write by a trigger, a read as interrupted, a commit as the engine refuses one.
[[nodiscard]] std::unique_ptr<store_faults> refused_statement(test_store& store);

/// From one write that makes a file of SQLite's longer on, every such write fails as on a full
/// disk, until mend().
[[nodiscard]] std::unique_ptr<store_faults> full_disk();

/// Whether the engine's own text tells that the connection was lost.
[[nodiscard]] inline bool tells_loss(const std::string& text) {
  return text.starts_with("the connection to the server was lost, ");
}

enum class wire_fault {
  refused,      ///< the server refuses the request
  lost_before,  ///< the connection ends before the server gets the request
  lost_after,   ///< the server does what it is asked, and the connection ends before the answer
  commit_lost,  ///< as lost_after, of commits alone
  away          ///< as lost_before, and nobody comes through any more until mend()
};

/// A road to the server of the tests on which one request fails. It counts all that go to the
/// server, the preparing ones as well.
[[nodiscard]] std::unique_ptr<store_faults> fault_on_the_wire(const test_store& store,
                                                              wire_fault kind);

}  // namespace harness
