#pragma once

#include <optional>
#include <string>

#include "store/recordset.h"
#include "store/sql.h"

namespace ta_vorlumine {

/// The select of the lines of a condition, a row of `replace_m`; nothing if it can't have any.
[[nodiscard]] std::optional<ADODB::statement> select_of_lines(const ADODB::Recordset& condition);

/// The node text of a condition with these lines. A line of an unknown kind is told in a message
/// and left out.
[[nodiscard]] std::string condition_text(const ADODB::Recordset& condition, ADODB::Recordset lines);

}  // namespace ta_vorlumine
