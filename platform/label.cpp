#include "platform/label.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>
#include <utility>

#include "platform/fonts.h"
#include "platform/hint.h"
#include "platform/toolkit_peer.h"

namespace platform {

namespace {

/// Its whole text is its hint. As a tool tip of its own a screen reader would read it twice.
class hinting_label : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), hint(text()), this);
    return true;
  }
};

/// Shows the beginning of a text that its width has no room for, and takes no "&" for the mark of a
/// shortcut.
class cut_label : public hinting_label {
 public:
  using hinting_label::hinting_label;

  [[nodiscard]] QSize sizeHint() const override {
    constexpr int letters = 24;
    const QSize whole = QLabel::sizeHint();
    return whole.boundedTo({letters * fontMetrics().height(), whole.height()});
  }
  [[nodiscard]] QSize minimumSizeHint() const override {
    constexpr int letters = 4;
    return sizeHint().boundedTo({letters * fontMetrics().height(), QLabel::sizeHint().height()});
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QRect room = contentsRect();
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
  }
};

}  // namespace

Label::Label(Form& form, std::string name, std::string caption, Control* buddy, lines label_lines)
    : Control(form, std::move(name)),
      caption_(std::move(caption)),
      buddy_(buddy),
      lines_(label_lines) {}

std::unique_ptr<toolkit_peer> Label::make() {
  QLabel* label = lines_ == lines::one   ? new cut_label
                  : lines_ == lines::two ? new hinting_label
                                         : new QLabel;
  label->setText(to_toolkit(caption_));
  label->setTextFormat(Qt::PlainText);
  if (lines_ == lines::two) {
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setFixedHeight(2 * QFontMetrics(window_font()).lineSpacing());
  }
  return std::make_unique<toolkit_peer>(label);
}

void Label::tie() {
  if (!buddy_) return;
  as<QLabel>(peer()).setBuddy(buddy_->peer().widget);
  buddy_->set_accessible_name(caption_);
}

void Label::set_caption(const std::string& caption) {
  as<QLabel>(peer()).setText(to_toolkit(caption));
}

}  // namespace platform
