#include "store/sql.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

#include "store/error.h"
#include "store/text.h"
#include "store/text_values.h"

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

parameter number_or_word(const std::string& text) {
  if (is_number(text)) {
    if (const auto whole = read_whole_number(text)) return *whole;
    return decimal{text};
  }
  if (equal_in_any_case(text, "true")) return true;
  if (equal_in_any_case(text, "false")) return false;
  if (equal_in_any_case(text, "null")) return {};
  // The text is left out of the reason: it may be what a user typed.
  throw Error(failure_kind::other, "a place for a number holds something else");
}

struct text_form {
  parameter operator()(std::monostate) const { return {}; }
  parameter operator()(std::int64_t number) const { return std::to_string(number); }
  parameter operator()(bool answer) const { return Value(answer).text(); }
  parameter operator()(const std::string& text) const { return text; }
  parameter operator()(const quoted_number& number) const { return number; }
};

struct number_form {
  parameter operator()(std::monostate) const { return {}; }
  parameter operator()(std::int64_t number) const { return number; }
  parameter operator()(bool answer) const { return answer; }
  parameter operator()(const std::string& text) const { return number_or_word(text); }
  parameter operator()(const quoted_number& number) const { return number_or_word(number.text); }
};

}  // namespace

argument::argument(const Value& value) {
  if (!value.is_null()) content_ = value.text();
}

argument argument::typed_number(const std::string& text) {
  argument typed(text);
  if (read_number(text)) typed.content_ = quoted_number{text};
  return typed;
}

parameter argument::quoted() const {
  return std::visit(text_form(), content_);
}

parameter argument::unquoted() const {
  return std::visit(number_form(), content_);
}

statement sql(const words& text, std::initializer_list<argument> values) {
  if (values.size() != text.places())
    throw std::logic_error("another number of values than of places: " + std::string(text.text()));
  statement made{text, {}};
  made.parameters.reserve(values.size());
  for (const argument& value : values) {
    made.parameters.push_back(text.is_quoted(made.parameters.size()) ? value.quoted()
                                                                     : value.unquoted());
  }
  return made;
}

}  // namespace ADODB
