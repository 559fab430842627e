#include "dragging.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWidget>

#include "browser/replace_form.h"

namespace harness {

// Without a display the toolkit's drag is over as soon as it starts: the way and the drop are told
// to the tree's own events.
void drag(QWidget& area, QPoint from, QPoint to) {
  QTest::mousePress(&area, Qt::LeftButton, {}, from);
  const QPoint off = from + QPoint(2 * QApplication::startDragDistance(), 0);
  QMouseEvent move(QEvent::MouseMove, off, area.mapToGlobal(off), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(&area, &move);
  auto& browser = platform::form<ta_vorlumine::replaceForm>();
  browser.window.guarded([&] {
    browser.SSTree1.on_drag_over(to.x(), to.y());
    browser.SSTree1.on_drop();
  });
}

}  // namespace harness
