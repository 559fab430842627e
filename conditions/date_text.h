#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace ta_vorlumine {

/// Ten characters with the separator as the fifth and the eighth of them; the rest may be anything.
[[nodiscard]] bool has_date_form(std::string_view text, char separator);

/// The day that a text of ten characters names: year, month and day as digits with one and the same
/// other character between them. Nothing if it is no such text or no day of the calendar.
[[nodiscard]] std::optional<std::chrono::sys_days> read_date(std::string_view text);

[[nodiscard]] std::string write_date(std::chrono::year_month_day day, char separator);

}  // namespace ta_vorlumine
