#include "store/value.h"

#include <charconv>
#include <cmath>

#include "store/decimal_form.h"
#include "store/error.h"

namespace ADODB {
namespace {

std::string digits_of(double number) {
  return std::isfinite(number) ? text_of(decimal_form_of(number)) : std::to_string(number);
}

struct text_form {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return digits_of(number); }
  std::string operator()(std::string text) const { return text; }
  std::string operator()(bool answer) const { return answer ? "True" : "False"; }
};

struct whole_number {
  std::int64_t operator()(std::int64_t number) const { return number; }
  std::int64_t operator()(bool answer) const { return answer ? 1 : 0; }

  std::int64_t operator()(double number) const {
    constexpr double limit = 9223372036854775808.0;
    if (number >= limit || number < -limit || number != std::trunc(number))
      throw Error(failure_kind::other, digits_of(number) + " is no whole number");
    return static_cast<std::int64_t>(number);
  }

  std::int64_t operator()(const std::string& text) const {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end)
      throw Error(failure_kind::other, "\"" + text + "\" is no whole number");
    return number;
  }

  std::int64_t operator()(std::monostate) const {
    throw Error(failure_kind::other, "null is no whole number");
  }
};

struct answer_of {
  bool operator()(bool answer) const { return answer; }
  bool operator()(std::int64_t number) const { return number != 0; }
  bool operator()(double number) const { return number != 0; }

  bool operator()(const std::string& text) const {
    throw Error(failure_kind::other, "\"" + text + "\" is neither true nor false");
  }
  bool operator()(std::monostate) const {
    throw Error(failure_kind::other, "null is neither true nor false");
  }
};

}  // namespace

std::string Value::text() const& {
  return std::visit(text_form(), content_);
}

std::string Value::text() && {
  return std::visit(text_form(), std::move(content_));
}

std::int64_t Value::number() const {
  return std::visit(whole_number(), content_);
}

bool Value::truth() const {
  return std::visit(answer_of(), content_);
}

}  // namespace ADODB
