#include "conditions/date_text.h"

#include <charconv>
#include <cstdio>

#include "platform/text_box.h"

namespace ta_vorlumine {
namespace {

std::optional<int> digits(std::string_view text) {
  for (const char c : text) {
    if (c < '0' || c > '9') return {};
  }
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

bool has_date_form(std::string_view text, char separator) {
  if (platform::character_count(text) != 10) return false;
  // In front of the fifth and the eighth character there may be wide ones.
  std::size_t character = 0;
  for (const char byte : text) {
    const bool starts = (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    character += starts ? 1 : 0;
    if (starts && (character == 5 || character == 8) && byte != separator) return false;
  }
  return true;
}

std::optional<std::chrono::sys_days> read_date(std::string_view text) {
  if (text.size() != 10 || text[4] != text[7] || (text[4] >= '0' && text[4] <= '9')) return {};
  const auto year = digits(text.substr(0, 4));
  const auto month = digits(text.substr(5, 2));
  const auto day = digits(text.substr(8, 2));
  if (!year || !month || !day) return {};
  const auto date = std::chrono::year(*year) / std::chrono::month(static_cast<unsigned>(*month)) /
                    std::chrono::day(static_cast<unsigned>(*day));
  if (!date.ok()) return {};
  return std::chrono::sys_days(date);
}

std::string write_date(std::chrono::year_month_day day, char separator) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d%c%02u%c%02u", static_cast<int>(day.year()), separator,
                static_cast<unsigned>(day.month()), separator, static_cast<unsigned>(day.day()));
  return text;
}

}  // namespace ta_vorlumine
