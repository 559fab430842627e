#pragma once

#include <QPoint>

class QWidget;

namespace harness {

/// The gesture itself: press, way and release, from one place of the widget to another.
void drag(QWidget& widget, QPoint from, QPoint to);

}  // namespace harness
