#include "platform/fonts.h"

#include <QApplication>
#include <QFontInfo>
#include <QStringList>
#include <algorithm>

#include "platform/toolkit_peer.h"

namespace platform {

QFont window_font() {
  QFont font = QApplication::font();
  font.setFamilies(QStringList{"MS UI Gothic", "Yu Gothic UI", "Noto Sans CJK JP", "IPAexGothic",
                               "IPAGothic", "VL Gothic"} +
                   font.families());
  return font;
}

double font_scale() {
  constexpr double usual_height = 12;  // pixels, which are 9 points on a screen of 96 to the inch
  return std::max(1.0, QFontInfo(window_font()).pixelSize() / usual_height);
}

int scaled_pixels(int twips) {
  return static_cast<int>(pixels(twips) * font_scale());
}

}  // namespace platform
