#pragma once

#include <map>
#include <mutex>
#include <string_view>
#include <thread>

#include "store_faults.h"

namespace harness {

/// A connection that goes away with this object.
class wire_end {
 public:
  explicit wire_end(int descriptor) : descriptor_(descriptor) {}
  wire_end(const wire_end&) = delete;
  wire_end& operator=(const wire_end&) = delete;
  ~wire_end();
  operator int() const { return descriptor_; }  // NOLINT(google-explicit-constructor)

 private:
  int descriptor_;
};

enum class wire_fault {
  refused,      ///< the server refuses the request
  lost_before,  ///< the connection ends before the server gets the request
  lost_after,   ///< the server does what it is asked, and the connection ends before the answer
  away          ///< as lost_before, and nobody comes through any more until mend()
};

/// A road to the server of the tests on which one request fails. It counts all that go to the
/// server, the preparing ones as well.
class wire_faults : public store_faults {
 public:
  wire_faults(const test_store& store, wire_fault kind);
  ~wire_faults() override;

  [[nodiscard]] std::string connect_string(const test_store& store) const override;
  void fail(int number) override;
  void mend() override;
  [[nodiscard]] int seen() const override;
  [[nodiscard]] std::string failed() const override;
  [[nodiscard]] bool tells(const std::string& text) const override;

 private:
  void serve(int client);
  [[nodiscard]] std::string statement_of(std::string_view request);
  /// Counts the request, and tells whether it is the one to fail.
  [[nodiscard]] bool fails(const std::string& statement);
  [[nodiscard]] bool is_open();

  const wire_fault kind_;
  const std::string folder_;  ///< of the socket that is the road's beginning
  std::string server_;        ///< the socket that is its end
  std::string port_;
  std::map<std::string, std::string> prepared_;  ///< statements by their names
  mutable std::mutex lock_;
  int wanted_ = 0;
  int seen_ = 0;
  bool is_away_ = false;
  std::string failed_;
  wire_end listener_;
  std::thread traffic_;
};

}  // namespace harness
