#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "store/value.h"
#include "store/words.h"

namespace ADODB {

/// A number that is no whole one of 64 bits, as its digits, so that an engine with exact numbers
/// loses none of them.
struct decimal {
  std::string digits;
  friend bool operator==(const decimal&, const decimal&) = default;
};

/// A number in a place in quotes, as it was typed: a text for a column that may be of any type.
struct quoted_number {
  std::string text;
  friend bool operator==(const quoted_number&, const quoted_number&) = default;
};

/// What an engine binds for one place: null, a number, a boolean or a text (UTF-8).
using parameter =
    std::variant<std::monostate, std::int64_t, decimal, quoted_number, bool, std::string>;

/// A statement to run: its words, and beside them a parameter for each of their places.
struct statement {
  words text;
  std::vector<parameter> parameters;
};

/// The integer types that fit into 64 bits with a sign. A char is none here: its place would be
/// filled with its code.
template <typename Type>
concept number_type = std::integral<Type> && !std::same_as<Type, bool> &&
                      !std::same_as<Type, char> && (std::signed_integral<Type> || sizeof(Type) < 8);

/// What a caller gives for one place of a statement.
class argument {
 public:
  template <std::convertible_to<std::string_view> Text>
  argument(const Text& text) : content_(std::string(std::string_view(text))) {}
  argument(std::same_as<bool> auto answer) : content_(answer) {}
  argument(number_type auto number) : content_(std::int64_t{number}) {}
  argument(const Value& value);
  /// A typed text, which each engine reads alike in a place in quotes if it is a number.
  [[nodiscard]] static argument typed_number(const std::string& text);

  /// For a place in quotes, which takes everything as its text form.
  [[nodiscard]] parameter quoted() const;
  /// For a place outside quotes, which takes numbers, True, False and null, be it as a text. Any
  /// other text raises Error.
  [[nodiscard]] parameter unquoted() const;

 private:
  std::variant<std::monostate, std::int64_t, bool, std::string, quoted_number> content_;
};

/// The statement of these words, their places filled from left to right. A null makes its place
/// null, quoted or not. Raises Error for a text outside quotes that doesn't belong there, and
/// std::logic_error for another number of values than of places.
[[nodiscard]] statement sql(const words& text, std::initializer_list<argument> values);

}  // namespace ADODB
