#include "controls/grid/cell_list.h"

#include <QFrame>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/toolkit_peer.h"

namespace ta_vorlumine {

using platform::to_toolkit;

/// A press beside the list closes it. One on the cell must do no more than that: handed on to the
/// grid, it would open the list again.
class cell_list::drop_window : public QFrame {
 public:
  explicit drop_window(QWidget& owner) : QFrame(&owner, Qt::Popup) {}

  QRect cell;

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    setAttribute(Qt::WA_NoMouseReplay, on_cell(*event));
    QFrame::mousePressEvent(event);
  }

  // The second half of a double click on the cell, whose first half has opened the list.
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (!on_cell(*event)) QFrame::mouseDoubleClickEvent(event);
  }

 private:
  [[nodiscard]] bool on_cell(const QMouseEvent& event) const {
    return cell.contains(event.globalPosition().toPoint());
  }
};

class cell_list::entries : public QListWidget {
 public:
  entries(cell_list& list, QWidget* parent) : QListWidget(parent), list_(list) {
    setObjectName("cell_list");
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
      case Qt::Key_Space:
      case Qt::Key_Tab:
        return list_.pick(currentRow());
      case Qt::Key_Escape:
      case Qt::Key_F2:
        window()->close();
        return;
      default:
        break;
    }
    const bool arrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (arrow && event->modifiers().testFlag(Qt::AltModifier)) {
      window()->close();
    } else if (!pick_number(event->text().toStdString())) {
      QListWidget::keyPressEvent(event);
    }
  }

  void mouseMoveEvent(QMouseEvent* event) override {
    if (QListWidgetItem* under = itemAt(event->position().toPoint())) setCurrentItem(under);
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    if (const QListWidgetItem* under = itemAt(event->position().toPoint())) list_.pick(row(under));
  }

 private:
  bool pick_number(const std::string& number) {
    const auto found = std::ranges::find(list_.choices_, number, &choice::number);
    if (found == list_.choices_.end()) return false;
    list_.pick(static_cast<int>(found - list_.choices_.begin()));
    return true;
  }

  cell_list& list_;
};

void cell_list::make_window() {
  window_ = new drop_window(owner_);
  list_ = new entries(*this, window_);
  window_->setFrameStyle(QFrame::Box | QFrame::Plain);
  window_->setFocusProxy(list_);
  auto* layout = new QVBoxLayout(window_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSizeConstraint(QLayout::SetNoConstraint);
  layout->addWidget(list_);
}

void cell_list::open(const std::vector<choice>& choices, std::string_view number,
                     std::string_view name, const QRect& cell) {
  constexpr int most_rows = 12;
  if (!window_) make_window();
  choices_ = choices;
  list_->clear();
  for (const choice& entry : choices_) {
    auto* item = new QListWidgetItem(to_toolkit(entry.word), list_);
    const int width = list_->fontMetrics().horizontalAdvance(item->text()) + cell.height();
    item->setSizeHint(QSize(width, cell.height()));
  }
  const auto held = std::ranges::find(choices_, number, &choice::number);
  list_->setCurrentRow(held == choices_.end() ? 0 : static_cast<int>(held - choices_.begin()));
  list_->setAccessibleName(to_toolkit(name));

  const int rows = std::min(list_->count(), most_rows);
  const int frame = 2 * window_->frameWidth();
  const QSize size(std::max(cell.width(), list_->sizeHintForColumn(0) + frame),
                   rows * cell.height() + frame);
  QRect place(cell.bottomLeft() + QPoint(0, 1), size);
  const QRect room = window_->parentWidget()->screen()->availableGeometry();
  if (place.bottom() > room.bottom()) place.moveBottom(cell.top() - 1);
  if (place.right() > room.right()) place.moveRight(room.right());
  window_->cell = cell;
  window_->setGeometry(place);
  window_->show();
  list_->setFocus(Qt::PopupFocusReason);
}

void cell_list::pick(int place) {
  const std::string number = choices_.at(static_cast<std::size_t>(place)).number;
  window_->close();
  on_pick(number);
}

}  // namespace ta_vorlumine
