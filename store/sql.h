#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>

#include "store/value.h"

namespace ADODB {

/// The integer types. A char is none here: its place would be filled with its code.
template <typename Type>
concept number_type = std::integral<Type> && !std::same_as<Type, bool> && !std::same_as<Type, char>;

/// What fills one place of a statement.
class place {
 public:
  place(std::string_view text) : text_(text) {}             // NOLINT(google-explicit-constructor)
  place(const std::string& text) : text_(text) {}           // NOLINT(google-explicit-constructor)
  place(const char* text) : text_(text) {}                  // NOLINT(google-explicit-constructor)
  place(bool answer) : text_(answer ? "True" : "False") {}  // NOLINT(google-explicit-constructor)
  place(number_type auto number) : text_(std::to_string(number)) {}  // NOLINT
  /// Null fills a quoted place, quotes included, with the word null.
  place(const Value& value) : text_(value.text()), null_(value.is_null()) {}  // NOLINT

  [[nodiscard]] const std::string& text() const { return text_; }
  [[nodiscard]] bool is_null() const { return null_; }

 private:
  std::string text_;
  bool null_ = false;
};

/// Fills the places of a statement text, `<name>`, from left to right in one pass, so that nothing
/// in a value is ever taken for a place. Inside single quotes each "'" of a value is doubled.
/// Outside quotes a value must be a number or one of the words True, False and null: anything else
/// raises std::logic_error, as does a number of values other than the number of places.
[[nodiscard]] std::string sql(std::string_view text, std::initializer_list<place> values);

}  // namespace ADODB
