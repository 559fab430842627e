#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace ADODB {

/// The number that a text stands for, in just the forms that the engines take for a number:
/// an optional sign, digits with an optional point, an optional exponent, blanks around. Nothing
/// for any other text, such as full-width digits or thousands separators.
[[nodiscard]] std::optional<double> read_number(std::string_view text);

/// The day that a text of ten characters names: year, month and day as digits with one and the same
/// other character between them. Nothing if it is no such text or no day of the calendar, which
/// begins with the year 1.
[[nodiscard]] std::optional<std::chrono::sys_days> read_date(std::string_view text);

}  // namespace ADODB
