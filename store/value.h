#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace ADODB {

/// One column of one row: null, a whole number, a real, a text (UTF-8) or a boolean.
class Value {
 public:
  Value() = default;
  explicit Value(std::int64_t number) : content_(number) {}
  explicit Value(double number) : content_(number) {}
  explicit Value(std::string text) : content_(std::move(text)) {}
  explicit Value(bool answer) : content_(answer) {}

  [[nodiscard]] bool is_null() const { return std::holds_alternative<std::monostate>(content_); }

  /// The default text form: null is the empty text, a boolean is "True" or "False", a number stands
  /// without needless digits and without an exponent, a real with the fewest digits that read back
  /// as the same number.
  [[nodiscard]] std::string text() const&;
  [[nodiscard]] std::string text() &&;

  /// The value as a whole number; a text counts when it is one from end to end, a boolean as 1 or
  /// 0. Anything else, null included, raises Error.
  [[nodiscard]] std::int64_t number() const;

  /// True for a boolean true and for a number other than 0. Null raises Error.
  [[nodiscard]] bool truth() const;

  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<std::monostate, std::int64_t, double, std::string, bool> content_;
};

}  // namespace ADODB
