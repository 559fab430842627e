#pragma once

#include <QImage>
#include <QWidget>

namespace harness {

/// Whether anything is drawn there on the ground of a list or field.
inline bool has_ink(QWidget& widget, const QRect& where) {
  const QImage image = widget.grab(where).toImage();
  const QColor ground = widget.palette().color(QPalette::Base);
  for (int x = 0; x < image.width(); ++x)
    for (int y = 0; y < image.height(); ++y)
      if (image.pixelColor(x, y) != ground) return true;
  return false;
}

}  // namespace harness
