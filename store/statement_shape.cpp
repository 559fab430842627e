#include "store/statement_shape.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <utility>

#include "store/ascii.h"

namespace ADODB {
namespace {

// Every byte of a letter beyond ASCII counts, as it does to the engines.
constexpr bool is_name_start(char letter) {
  return is_letter(letter) || letter == '_' || static_cast<unsigned char>(letter) >= 0x80;
}

// Looked up rather than worked out: most letters of a statement are asked for it, and every
// statement of the system comes by here.
constexpr auto name_parts = [] {
  std::array<bool, 256> parts{};
  for (int code = 0; code < 256; ++code) {
    const char letter = static_cast<char>(code);
    parts[code] = is_name_start(letter) || is_digit(letter) || letter == '$';
  }
  return parts;
}();

bool is_name_part(char letter) {
  return name_parts[static_cast<unsigned char>(letter)];
}

class lifting {
 public:
  lifting(std::string_view statement, placeholder form) : statement_(statement), form_(form) {}

  statement_shape shape() {
    if (!has_liftable_kind() || !scan()) return {std::string(statement_), {}};
    shape_.text += statement_.substr(copied_);
    return std::move(shape_);
  }

 private:
  bool has_liftable_kind() {
    constexpr std::array<std::string_view, 4> kinds = {"select", "insert", "update", "delete"};
    while (is_at(' ') || is_at('\n') || is_at('\t') || is_at('\r')) ++position_;
    const std::string_view kind = word();
    return std::ranges::any_of(kinds, [&](auto known) { return equal_in_any_case(kind, known); });
  }

  /// False if the statement ends within a quote, or holds what not every engine reads alike.
  bool scan() {
    shape_.text.reserve(statement_.size());
    while (position_ < statement_.size()) {
      const char letter = statement_[position_];
      if (is_name_start(letter)) {
        const std::string_view name = word();
        if (equal_in_any_case(name, "order") || equal_in_any_case(name, "group")) return true;
        if (is_at('\'') && (equal_in_any_case(name, "e") || !skip_quoted('\''))) return false;
      } else if (is_digit(letter) || letter == '.') {
        lift_number();
      } else if (letter == '\'') {
        if (!lift_text()) return false;
      } else if (letter == '"') {
        if (!skip_quoted('"')) return false;
      } else if (letter == '$') {
        return false;
      } else if (!skip_comment()) {
        ++position_;
      }
    }
    return true;
  }

  [[nodiscard]] bool is_at(char letter, std::size_t ahead = 0) const {
    return position_ + ahead < statement_.size() && statement_[position_ + ahead] == letter;
  }

  std::string_view word() {
    const std::size_t start = position_;
    while (position_ < statement_.size() && is_name_part(statement_[position_])) ++position_;
    return statement_.substr(start, position_ - start);
  }

  void go_behind(std::string_view end) {
    const std::size_t found = statement_.find(end, position_);
    position_ = found == std::string_view::npos ? statement_.size() : found + end.size();
  }

  bool skip_comment() {
    if (is_at('-') && is_at('-', 1))
      go_behind("\n");
    else if (is_at('/') && is_at('*', 1))
      go_behind("*/");
    else
      return false;
    return true;
  }

  bool skip_quoted(char quote) {
    do {
      const std::size_t end = statement_.find(quote, position_ + 1);
      if (end == std::string_view::npos) return false;
      position_ = end + 1;
    } while (is_at(quote));
    return true;
  }

  bool lift_text() {
    const std::size_t start = position_;
    if (!skip_quoted('\'')) return false;
    const std::string_view quoted = statement_.substr(start + 1, position_ - start - 2);
    std::string text;
    text.reserve(quoted.size());
    for (std::size_t i = 0; i < quoted.size(); ++i) {
      text += quoted[i];
      if (quoted[i] == '\'') ++i;  // the second of a doubled one
    }
    leave_placeholder(start, std::move(text));
    return true;
  }

  void skip_digits() {
    while (position_ < statement_.size() && is_digit(statement_[position_])) ++position_;
  }

  void lift_number() {
    const std::size_t start = position_;
    skip_digits();
    const bool whole = !is_at('.') && !is_at('e') && !is_at('E');
    if (whole && lift_number_as<std::int64_t>(start)) return;
    if (is_at('.')) ++position_;
    skip_digits();
    if (is_at('e') || is_at('E')) {
      ++position_;
      if (is_at('-') || is_at('+')) ++position_;
      skip_digits();
    }
    if (whole || !keeps_its_digits(start) || !lift_number_as<double>(start)) word();
  }

  /// Whether a real gives back every digit that stands between `start` and the position.
  [[nodiscard]] bool keeps_its_digits(std::size_t start) const {
    const std::string_view number = statement_.substr(start, position_ - start);
    return std::ranges::count_if(number, is_digit) <= std::numeric_limits<double>::digits10;
  }

  /// Lifts from `start` to the position, if that reads as one number of the type to its end.
  template <typename Number>
  bool lift_number_as(std::size_t start) {
    if (position_ < statement_.size() && is_name_part(statement_[position_])) return false;
    Number number{};
    const char* const end = statement_.data() + position_;
    const auto read = std::from_chars(statement_.data() + start, end, number);
    if (read.ec != std::errc() || read.ptr != end) return false;
    leave_placeholder(start, number);
    return true;
  }

  void leave_placeholder(std::size_t start, literal value) {
    shape_.literals.push_back(std::move(value));
    shape_.text += statement_.substr(copied_, start - copied_);
    if (form_ == placeholder::question_mark)
      shape_.text += '?';
    else
      shape_.text += '$' + std::to_string(shape_.literals.size());
    copied_ = position_;
    // A quote ends a text by itself, but a number goes on as a name.
    if (position_ < statement_.size() && is_name_part(statement_[position_])) shape_.text += ' ';
  }

  std::string_view statement_;
  placeholder form_;
  statement_shape shape_;
  std::size_t position_ = 0;
  std::size_t copied_ = 0;
};

}  // namespace

statement_shape lift_literals(std::string_view statement, placeholder form) {
  return lifting(statement, form).shape();
}

}  // namespace ADODB
