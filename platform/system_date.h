#pragma once

#include <chrono>

namespace platform {

/// How the system writes a day: four digits of the year, two of the month and two of the day, with
/// the same separator between them.
struct system_date {
  char separator = '/';
  std::chrono::year_month_day today;
};

/// The separator of the system's short date if that begins with the year, else "/".
[[nodiscard]] system_date read_system_date();

}  // namespace platform
