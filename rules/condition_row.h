#pragma once

#include <cstdint>

namespace ta_vorlumine {

/// A new condition's lines go under the number that its row will get. Draws the number again: while
/// the dialog was open another program may have taken the one that it was lent.
void renew_condition_number();

/// How many children the selected field has.
[[nodiscard]] std::int64_t count_children();

/// Makes the row of a new condition under the selected field and advances the counters.
void insert_condition_row();

}  // namespace ta_vorlumine
