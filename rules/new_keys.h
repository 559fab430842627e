#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace ta_vorlumine {

class replaceForm;

/// A key in the 16 bits that all programs on the store keep it in. Raises std::runtime_error, with
/// a text for the user, outside 1 to 32767.
[[nodiscard]] std::int16_t checked_key(std::int64_t key);

/// Takes the next number of the counter `name` and calls `insert` with it. If the store holds that
/// key already, because another program was quicker or a crash left the counter behind, the counter
/// is advanced and the next number tried, outside a transaction and for a bounded number of times.
/// Gives the key that went in. Advancing the counter past it is the caller's, last of all.
std::int16_t insert_with_new_key(replaceForm& shared, std::string_view name,
                                 const std::function<void(std::int16_t key)>& insert);

/// The same for a caller who has read the counter already.
std::int16_t insert_with_new_key(replaceForm& shared, std::string_view name,
                                 std::int64_t last_number,
                                 const std::function<void(std::int16_t key)>& insert);

/// The next rule key for the definition under edit. A counter that lags behind that definition's
/// rows is advanced past them first: inside a transaction a refused insert would come too late.
[[nodiscard]] std::int16_t free_rule_key(replaceForm& shared);

}  // namespace ta_vorlumine
