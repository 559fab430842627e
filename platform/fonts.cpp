#include "platform/fonts.h"

#include <QApplication>
#include <QStringList>

namespace platform {

QFont window_font() {
  QFont font = QApplication::font();
  font.setFamilies(QStringList{"MS UI Gothic", "Yu Gothic UI", "Noto Sans CJK JP", "IPAexGothic",
                               "IPAGothic", "VL Gothic"} +
                   font.families());
  return font;
}

}  // namespace platform
