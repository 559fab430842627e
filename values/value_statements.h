#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "store/sql.h"

namespace ta_vorlumine {

/// What a value holds, by its place among the options of the value dialog.
enum value_kind : std::size_t {
  text_value,
  text_file_value,
  image_file_value,
  multimedia_file_value,
  field_value
};
inline constexpr std::size_t value_kinds = 5;

/// A value as the user gave it. Of a field `content` is the field's id.
struct value_entry {
  value_kind kind;
  std::string title;
  std::string content;
};

/// Writes the value into the row `key` of the rule tree of the definition `replace_no`. The columns
/// of the other kinds go blank, but for r_text: a value that becomes a field keeps its old text.
[[nodiscard]] ADODB::statement update_statement(const value_entry& value, const std::string& key,
                                                std::int16_t replace_no);

/// Adds the value as row `new_no` below the row `parent`.
[[nodiscard]] ADODB::statement insert_statement(const value_entry& value, std::int16_t new_no,
                                                const std::string& parent, std::int16_t replace_no);

}  // namespace ta_vorlumine
