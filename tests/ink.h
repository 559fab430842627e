#pragma once

#include <QImage>
#include <QWidget>

namespace harness {

/// Whether anything is drawn there on the ground of a list or field.
inline bool has_ink(QWidget& widget, const QRect& where) {
  const QImage image = widget.grab(where).toImage();
  QImage blank(image.size(), image.format());
  blank.fill(widget.palette().color(QPalette::Base));
  return image != blank;
}

}  // namespace harness
