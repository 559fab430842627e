#include "platform/label.h"

#include <QFontMetrics>
#include <QLabel>
#include <utility>

#include "platform/fonts.h"
#include "platform/toolkit_peer.h"

namespace platform {

Label::Label(Form& form, std::string name, std::string caption, Control* buddy, lines label_lines)
    : Control(form, std::move(name)),
      caption_(std::move(caption)),
      buddy_(buddy),
      lines_(label_lines) {}

std::unique_ptr<toolkit_peer> Label::make() {
  auto* label = new QLabel(to_toolkit(caption_));
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
  if (lines_ == lines::two) as<QLabel>(peer()).setToolTip(to_toolkit(caption).toHtmlEscaped());
}

}  // namespace platform
