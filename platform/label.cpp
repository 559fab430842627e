#include "platform/label.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <utility>

#include "platform/fonts.h"
#include "platform/hint.h"
#include "platform/toolkit_peer.h"

namespace platform {

namespace {

/// Shows the beginning of a text that its width has no room for, and takes no "&" for the mark of a
/// shortcut.
class cut_label : public QLabel {
 public:
  using QLabel::QLabel;

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
  auto* label = lines_ == lines::one ? new cut_label : new QLabel;
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
  if (lines_ != lines::as_needed) as<QLabel>(peer()).setToolTip(hint(to_toolkit(caption)));
}

}  // namespace platform
