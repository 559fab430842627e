#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace ta_vorlumine {

/// Ten characters with the separator as the fifth and the eighth of them; the rest may be anything.
[[nodiscard]] bool has_date_form(std::string_view text, char separator);

[[nodiscard]] std::string write_date(std::chrono::year_month_day day, char separator);

}  // namespace ta_vorlumine
