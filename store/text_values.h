#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ADODB {

/// The number that a text stands for, in just the forms that the engines take for a number:
/// an optional sign, digits with an optional point, an optional exponent, blanks around. Nothing
/// for any other text, such as full-width digits or thousands separators. What lies beyond the
/// reals is infinite, what lies too near to 0 for them is 0.
[[nodiscard]] std::optional<double> read_number(std::string_view text);

/// The number of 64 bits that a text stands for which has neither point nor exponent.
[[nodiscard]] std::optional<std::int64_t> read_whole_number(std::string_view text);

/// Whether each engine keeps the number just as it is: a whole one as above, or
/// a real in no more digits than it needs to read back the same. False for what is no number.
[[nodiscard]] bool is_kept_exactly(std::string_view text);

/// The day that a text of ten characters names: year, month and day as digits with one and the same
/// other character between them. Nothing if it is no such text or no day of the calendar, which
/// begins with the year 1.
[[nodiscard]] std::optional<std::chrono::sys_days> read_date(std::string_view text);

}  // namespace ADODB
