#include "store/sql.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

#include "store/ascii.h"

namespace ADODB {
namespace {

bool is_number(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  const auto digits = [](std::string_view part) {
    return !part.empty() && std::ranges::all_of(part, is_digit);
  };
  return digits(text.substr(0, point)) &&
         (point == std::string_view::npos || digits(text.substr(point + 1)));
}

bool may_stand_unquoted(std::string_view text) {
  return is_number(text) || equal_in_any_case(text, "true") || equal_in_any_case(text, "false") ||
         equal_in_any_case(text, "null");
}

/// One filling of a statement text.
class filling {
 public:
  filling(std::string_view text, std::initializer_list<place> values)
      : text_(text), next_(values.begin()), end_(values.end()) {
    statement_.reserve(text.size() + 32 * values.size());
  }

  std::string statement() {
    while (true) {
      copy_to_mark();
      if (position_ == text_.size()) break;
      if (at_place())
        fill();
      else
        copy_mark();
    }
    if (next_ != end_) refuse("more values than places");
    return std::move(statement_);
  }

 private:
  [[noreturn]] void refuse(const std::string& reason) const {
    throw std::logic_error(reason + ": " + std::string(text_));
  }

  [[nodiscard]] bool at_place() const {
    return text_[position_] == '<' && position_ + 1 < text_.size() &&
           is_letter(text_[position_ + 1]);
  }

  void copy_to_mark() {
    const std::size_t start = position_;
    while (position_ < text_.size() && text_[position_] != '<' && text_[position_] != '\'')
      ++position_;
    statement_ += text_.substr(start, position_ - start);
  }

  void copy_mark() {
    const char mark = text_[position_++];
    statement_ += mark;
    if (mark != '\'') return;
    quoted_ = !quoted_;
    behind_quote_ = statement_.size();
  }

  void fill() {
    const std::size_t end = text_.find('>', position_);
    if (end == std::string_view::npos) refuse("a place without its end");
    if (next_ == end_) refuse("more places than values");
    const place& value = *next_++;
    position_ = end + 1;
    if (value.is_null())
      put_null();
    else if (quoted_)
      put_doubled(value.text());
    else
      put_unquoted(value.text());
  }

  void put_null() {
    if (quoted_) {
      if (statement_.size() != behind_quote_ || !text_.substr(position_).starts_with('\''))
        refuse("a null for a part of a quoted text");
      statement_.pop_back();
      ++position_;
      quoted_ = false;
    }
    statement_ += "null";
  }

  void put_doubled(std::string_view value) {
    for (const char letter : value) {
      statement_ += letter;
      if (letter == '\'') statement_ += letter;
    }
  }

  // The value is left out of the reason: it may be what a user typed.
  void put_unquoted(std::string_view value) {
    if (!may_stand_unquoted(value)) refuse("a text for a place outside quotes");
    statement_ += value;
  }

  std::string_view text_;
  const place* next_;
  const place* end_;
  std::size_t position_ = 0;
  std::string statement_;
  bool quoted_ = false;
  std::size_t behind_quote_ = 0;
};

}  // namespace

std::string sql(std::string_view text, std::initializer_list<place> values) {
  return filling(text, values).statement();
}

}  // namespace ADODB
