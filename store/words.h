#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "store/fingerprint.h"
#include "store/text.h"

namespace ADODB {

/// Where a place stands in a statement's words; its quotes, if it has any, belong to it.
struct place {
  std::size_t begin;
  std::size_t end;
  bool is_quoted;
};

/// Finds the places of a statement's words from left to right: names in angle brackets, <name>, and
/// numbered tokens, %1 or %01, which count the places. Raises std::logic_error where a place is
/// only a part of a quoted text, or a token has another number than its place.
class place_finder {
 public:
  constexpr explicit place_finder(std::string_view text) : text_(text) {}

  /// The next place; nothing behind the last one.
  constexpr std::optional<place> next() {
    for (; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\'') {
        in_quotes_ = !in_quotes_;
        quote_ = at_;
      } else if (const std::size_t end = end_of_mark(); end != at_) {
        return place_until(end);
      }
    }
    if (in_quotes_) throw std::logic_error("a quoted text without its end");
    return std::nullopt;
  }

 private:
  [[nodiscard]] constexpr bool has_digit(std::size_t position) const {
    return position < text_.size() && is_digit(text_[position]);
  }

  /// Behind the name or token that begins here; here itself if none does.
  [[nodiscard]] constexpr std::size_t end_of_mark() const {
    const std::string_view rest = text_.substr(at_);
    if (rest.size() > 1 && rest[0] == '<' && is_letter(rest[1])) return end_of_name();
    if (rest[0] == '%' && has_digit(at_ + 1)) return end_of_token();
    return at_;
  }

  [[nodiscard]] constexpr std::size_t end_of_name() const {
    const std::size_t end = text_.find('>', at_);
    if (end == std::string_view::npos) throw std::logic_error("a place without its end");
    return end + 1;
  }

  [[nodiscard]] constexpr std::size_t end_of_token() const {
    std::size_t end = at_ + 1;
    std::size_t number = 0;
    for (; has_digit(end) && end < at_ + 3; ++end)
      number = number * 10 + static_cast<std::size_t>(text_[end] - '0');
    if (number != found_ + 1) throw std::logic_error("a token that doesn't count its place");
    return end;
  }

  constexpr place place_until(std::size_t end) {
    place found{at_, end, in_quotes_};
    if (in_quotes_) {
      if (quote_ + 1 != at_ || end == text_.size() || text_[end] != '\'')
        throw std::logic_error("a place for a part of a quoted text");
      found = {quote_, end + 1, true};
    }
    in_quotes_ = false;
    at_ = found.end;
    ++found_;
    return found;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t found_ = 0;
  bool in_quotes_ = false;
  std::size_t quote_ = 0;
};

/// Whether a statement only looks something up: none of this program's selects changes anything.
[[nodiscard]] constexpr bool is_look_up(std::string_view statement) {
  constexpr std::string_view select = "select ";
  return equal_in_any_case(trimmed(statement).substr(0, select.size()), select);
}

/// How an engine writes the parameters of a statement: "?", or "$1", "$2" and so on.
enum class parameter_form { question_mark, numbered };

/// The words of a statement, with places for its values. The compiler makes them of a literal: what
/// a user types can't get in among them, a misplaced place is an error of compilation, and no
/// statement that runs is searched for places again.
class words {
 public:
  template <std::size_t size>
  consteval words(const char (&text)[size]) : text_(text, size - 1) {
    place_finder places(text_);
    while (const auto found = places.next()) {
      if (places_ == most_places) throw std::logic_error("too many places");
      if (found->is_quoted) quoted_places_ |= std::uint32_t{1} << places_;
      ++places_;
    }
    fingerprint_.add(text_);
  }

  [[nodiscard]] std::string_view text() const { return text_; }
  [[nodiscard]] std::size_t places() const { return places_; }
  /// Whether the place of that number, from 0, stands in quotes.
  [[nodiscard]] bool is_quoted(std::size_t place) const {
    return (quoted_places_ >> place & 1) != 0;
  }
  /// The text with a parameter for each place.
  [[nodiscard]] std::string with_parameters(parameter_form form) const;
  /// Of the text, made while the program is compiled.
  [[nodiscard]] const ADODB::fingerprint& fingerprint() const { return fingerprint_; }

  friend bool operator==(const words& one, const words& other) { return one.text_ == other.text_; }

 private:
  static constexpr std::size_t most_places = 32;

  std::string_view text_;
  std::size_t places_ = 0;
  std::uint32_t quoted_places_ = 0;  ///< a bit for each place
  ADODB::fingerprint fingerprint_;
};

}  // namespace ADODB
