#pragma once

#include <cstdint>

namespace ta_vorlumine {

/// The key of a row of `replace` or `replace_m`, or the number of a condition's lines. This editor
/// gives 1 to 32767; rows of other programs may lie beyond. 0 is the root of a tree, which has no
/// row. A tree node's key is the same number as decimal text.
using row_key = std::int64_t;

/// The highest key that programs on the store can keep: they have 16 bits.
inline constexpr std::int16_t highest_key = 32767;

/// A key in the 16 bits that all programs on the store keep it in. Raises std::runtime_error, with
/// a text for the user, outside 1 to 32767.
[[nodiscard]] std::int16_t checked_key(row_key key);

}  // namespace ta_vorlumine
