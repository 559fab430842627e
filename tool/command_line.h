#pragma once

#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace rule_store {

/// The arguments don't fit. what() says why, and repeats nothing that may hold a password.
class usage_error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What the caller gave: options, and the other arguments in their order. Behind "--" nothing is an
/// option.
class given_arguments {
 public:
  explicit given_arguments(std::span<const std::string_view> arguments);

  [[nodiscard]] const std::vector<std::string>& others() const { return others_; }
  [[nodiscard]] bool has(std::string_view option) const;
  /// Raises usage_error if an option is none of these.
  void allow_only(std::span<const std::string_view> options) const;

 private:
  std::vector<std::string> options_;
  std::vector<std::string> others_;
};

}  // namespace rule_store
