#pragma once

#include <QPoint>

class QWidget;

namespace harness {

/// Drags what lies at one place of the title tree's area onto what lies at another.
void drag(QWidget& area, QPoint from, QPoint to);

}  // namespace harness
