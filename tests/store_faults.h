#pragma once

#include <string>

#include "test_store.h"

namespace harness {

/// What goes wrong in a store while the program works on it: the occasions for it are counted, and
/// one of them fails. As it stands here nothing does.
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

}  // namespace harness
