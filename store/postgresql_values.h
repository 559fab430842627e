#pragma once

#include <libpq-fe.h>

#include <optional>
#include <string>
#include <string_view>

#include "store/recordset.h"
#include "store/sql.h"

namespace ADODB {

/// A parameter as PostgreSQL takes it.
struct bound_value {
  Oid type;  ///< what a literal in its place would have; 0 leaves it to the server, as for a text
  std::optional<std::string> text;  ///< nothing for null
};
[[nodiscard]] bound_value bound(const parameter& value);

/// Raises Error for a text that PostgreSQL would read up to its first zero character only.
void refuse_zero_character(std::string_view text);

/// The columns of an answer.
[[nodiscard]] column_names columns_of(const PGresult* answer);

/// The rows of an answer that has these columns. An exact number that is no whole one of 64 bits is
/// the text of its digits, so that none is lost.
[[nodiscard]] result rows_of(const PGresult* answer, column_names columns);

}  // namespace ADODB
