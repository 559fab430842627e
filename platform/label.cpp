#include "platform/label.h"

#include <QLabel>
#include <utility>

#include "platform/native.h"

namespace platform {

Label::Label(Form& form, std::string name, std::string caption, Control* buddy)
    : Control(form, std::move(name)), caption_(std::move(caption)), buddy_(buddy) {}

std::unique_ptr<native> Label::make() {
  auto* label = new QLabel(to_toolkit(caption_));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(caption_.empty());
  return std::make_unique<native>(label);
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
