#pragma once

#include <string>

#include "conditions/condition_dialog.h"

namespace ta_vorlumine {

// The cells of a range: a lower end and an upper end, each a value and a method.
constexpr std::size_t from_value = 5;
constexpr std::size_t from_method = 6;
constexpr std::size_t to_value = 7;
constexpr std::size_t to_method = 8;

/// The statements, and their values, in which ranges of dates and of numbers differ.
struct range_statements {
  ADODB::words select;
  ADODB::words insert_both;                      ///< both ends
  ADODB::words insert_upper;                     ///< the upper end alone
  ADODB::words insert_lower;                     ///< the lower end alone
  ADODB::argument (*bound)(const std::string&);  ///< the value of an end, for its place
};

/// What the dialogs of ranges have in common. The row test and what happens before an edit is taken
/// are the caller's to add.
[[nodiscard]] condition_lines range_lines(const std::string& use_type,
                                          const range_statements& statements);

}  // namespace ta_vorlumine
