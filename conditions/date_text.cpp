#include "conditions/date_text.h"

#include <cstdio>

#include "store/text.h"

namespace ta_vorlumine {

bool has_date_form(std::string_view text, char separator) {
  if (ADODB::character_count(text) != 10) return false;
  // In front of the fifth and the eighth character there may be wide ones.
  std::size_t character = 0;
  for (const char byte : text) {
    const bool starts = ADODB::begins_character(byte);
    character += starts ? 1 : 0;
    if (starts && (character == 5 || character == 8) && byte != separator) return false;
  }
  return true;
}

std::string write_date(std::chrono::year_month_day day, char separator) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d%c%02u%c%02u", static_cast<int>(day.year()), separator,
                static_cast<unsigned>(day.month()), separator, static_cast<unsigned>(day.day()));
  return text;
}

}  // namespace ta_vorlumine
