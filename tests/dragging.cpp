#include "dragging.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace harness {

// The toolkit's drag runs a loop of its own, which takes the pointer's way from the window.
void drag(QWidget& widget, QPoint from, QPoint to) {
  QWindow* const window = widget.window()->windowHandle();
  const QPoint goal = widget.mapTo(widget.window(), to);
  bool released = false;
  QTimer::singleShot(0, &widget, [&released, window, goal] {
    released = true;
    QTest::mouseMove(window, goal);
    QTest::mouseRelease(window, Qt::LeftButton, {}, goal);
  });
  QTest::mousePress(&widget, Qt::LeftButton, {}, from);
  const QPoint away = from + QPoint(2 * QApplication::startDragDistance(), 0);
  QMouseEvent move(QEvent::MouseMove, away, widget.mapToGlobal(away), Qt::NoButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(&widget, &move);
  while (!released) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace harness
