#include "platform/composition_label.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QToolTip>

#include "platform/composition.h"

namespace platform {

composition_label::composition_label(QWidget& control, QWidget& area)
    : QLabel(&area), control_(control) {
  setTextFormat(Qt::PlainText);
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setPalette(QToolTip::palette());
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  setAutoFillBackground(true);
  hide();
  drop_compositions(control);
}

void composition_label::show_composition(const QInputMethodEvent& event, const QRect& entry) {
  setText(event.preeditString());
  const int width = qMin(sizeHint().width(), parentWidget()->width());
  const int left = qBound(0, entry.left(), parentWidget()->width() - width);
  setGeometry(left, entry.top(), width, entry.height());
  setVisible(!text().isEmpty());
  QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle);
}

QVariant composition_label::answer(Qt::InputMethodQuery query, const QRect& entry) const {
  if (query == Qt::ImEnabled) return true;
  if (query != Qt::ImCursorRectangle) return control_.QWidget::inputMethodQuery(query);
  const QPoint corner = parentWidget()->mapTo(&control_, QPoint());
  const QRect place = isVisible() ? geometry() : entry;
  return QRect(place.topLeft() + corner, QSize(1, place.height()));
}

bool is_space_bar(const QInputMethodEvent& event) {
  const QString& text = event.commitString();
  return !text.isEmpty() && text.trimmed().isEmpty();
}

}  // namespace platform
