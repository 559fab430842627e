#include "controls/grid/cell_painter.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "platform/contrast.h"

namespace ta_vorlumine {
namespace {

static_assert(drop_down_role >= Qt::UserRole);

class cell_painter : public QStyledItemDelegate {
 public:
  explicit cell_painter(QAbstractItemView& view) : QStyledItemDelegate(&view), view_(view) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem cell(option);
    cell.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
    if (index.data(drop_down_role).toBool()) {
      cell.rect.adjust(0, 0, -arrow_room, 0);
      paint_arrow(*painter, QRect(cell.rect.topRight(), option.rect.bottomRight()), option);
    }
    QStyledItemDelegate::paint(painter, cell, index);
    paint_lines(*painter, option);
    if (index == view_.currentIndex()) paint_ring(*painter, option);
  }

  // A text that its cell cuts off can be read by pointing at it.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    const bool cut = sizeHint(option, index).width() > option.rect.width() - arrow_room;
    if (event->type() != QEvent::ToolTip || !cut) {
      return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(), index.data().toString(), view, option.rect);
    return true;
  }

 private:
  static constexpr int arrow_room = 16;

  void paint_arrow(QPainter& painter, const QRect& room, const QStyleOptionViewItem& cell) const {
    constexpr int side = 10;
    QStyleOption arrow;
    arrow.palette = cell.palette;
    arrow.state = cell.state & QStyle::State_Enabled;
    arrow.rect = QRect(0, 0, side, side);
    arrow.rect.moveCenter(room.center());
    view_.style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, &view_);
  }

  // Those of the toolkit are darker than the ground, which on a dark one nobody sees.
  static void paint_lines(QPainter& painter, const QStyleOptionViewItem& cell) {
    const QColor ground = cell.palette.color(QPalette::Base);
    const QColor ink = cell.palette.color(QPalette::Text);
    const auto between = [](int far, int near) { return (3 * far + near) / 4; };
    painter.save();
    painter.setPen(QColor(between(ground.red(), ink.red()), between(ground.green(), ink.green()),
                          between(ground.blue(), ink.blue())));
    painter.drawLine(cell.rect.topRight(), cell.rect.bottomRight());
    painter.drawLine(cell.rect.bottomLeft(), cell.rect.bottomRight());
    painter.restore();
  }

  void paint_ring(QPainter& painter, const QStyleOptionViewItem& cell) const {
    const auto colour = has_keyboard() ? QPalette::Highlight : QPalette::Mid;
    painter.save();
    const QColor ring = platform::readable_on(cell.palette.color(QPalette::Base),
                                              cell.palette.color(QPalette::Active, colour));
    painter.setPen(QPen(ring, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(cell.rect.adjusted(1, 1, -1, -1));
    painter.restore();
  }

  // The drop-down list, although a window of its own, belongs to the view like the text editor.
  [[nodiscard]] bool has_keyboard() const {
    const QObject* focused = QApplication::focusWidget();
    while (focused && focused != &view_) focused = focused->parent();
    return focused != nullptr;
  }

  QAbstractItemView& view_;
};

}  // namespace

QAbstractItemDelegate* make_cell_painter(QAbstractItemView& view) {
  return new cell_painter(view);
}

}  // namespace ta_vorlumine
