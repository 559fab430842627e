#pragma once

#include <cstdint>

namespace ta_vorlumine {

/// Draws the number of a new condition again if the counter has moved since the dialog opened:
/// another program may have taken the one that the dialog was given.
void renew_condition_number();

/// How many children the selected field has. Overwrites shared().basRS.
[[nodiscard]] std::int64_t count_children();

/// Makes the row of a new condition under the selected field, which has `children` so far; the
/// first one brings the otherwise row along.
void insert_new_condition(std::int64_t children);

}  // namespace ta_vorlumine
