#pragma once

#include <string>

#include "store/recordset.h"

namespace ta_vorlumine {

/// The node text of a condition, from its current row of `replace_m` and the lines that the row
/// points to. Overwrites shared().basRS. A line of an unknown kind is told in a message
/// and left out.
[[nodiscard]] std::string condition_text(const ADODB::Recordset& condition);

}  // namespace ta_vorlumine
