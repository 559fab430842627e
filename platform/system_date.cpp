#include "platform/system_date.h"

#include <QDate>
#include <QLocale>

namespace platform {

system_date read_system_date() {
  const QString format = QLocale::system().dateFormat(QLocale::ShortFormat);
  const bool year_first =
      format.startsWith("yyyy") && format.size() > 4 && format[4].unicode() < 128;
  const QDate today = QDate::currentDate();
  return {year_first ? format[4].toLatin1() : '/',
          std::chrono::year(today.year()) /
              std::chrono::month(static_cast<unsigned>(today.month())) /
              std::chrono::day(static_cast<unsigned>(today.day()))};
}

}  // namespace platform
