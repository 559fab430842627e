#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ADODB {

using literal = std::variant<std::int64_t, double, std::string>;

/// A statement with its literals lifted out: what remains is the same for all statements of one
/// kind, so that it can be prepared once. Each literal left a placeholder behind, in order.
struct statement_shape {
  std::string text;
  std::vector<literal> literals;
};

/// What a literal leaves behind: "?", or "$1", "$2" and so on.
enum class placeholder { question_mark, numbered };

/// Lifts quoted texts and unsigned numbers out of a select, insert, update or delete, as far as an
/// ORDER or GROUP, behind which a number names a column. Names, comments, numbers of more digits
/// than a literal holds and literals with a type in front (x'00') stay. Any other statement, and
/// one that ends within a quote, has an escaped text (E'') or a "$" outside of names, comes back as
/// it is: the engine reads it, or refuses in its own words what is wrong with it.
[[nodiscard]] statement_shape lift_literals(std::string_view statement, placeholder form);

}  // namespace ADODB
