#include "platform/option_button.h"

#include <QRadioButton>
#include <utility>

#include "platform/form.h"
#include "platform/toolkit_peer.h"

namespace platform {
namespace {

// The Tab key stops at the selected member of a group; the arrow keys lead to the others.
void stop_tab_at(QRadioButton& selected) {
  for (QRadioButton* member : selected.parentWidget()->findChildren<QRadioButton*>()) {
    member->setFocusPolicy(member == &selected ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

}  // namespace

OptionButton::OptionButton(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), caption_(std::move(caption)) {}

std::unique_ptr<toolkit_peer> OptionButton::make() {
  auto* button = new QRadioButton(to_toolkit(caption_));
  QObject::connect(button, &QRadioButton::toggled, button, [this, button](bool selected) {
    if (!selected) return;
    stop_tab_at(*button);
    if (on_click) form().guarded(on_click);
  });
  return std::make_unique<toolkit_peer>(button);
}

bool OptionButton::selected() {
  return as<QRadioButton>(peer()).isChecked();
}

void OptionButton::select() {
  as<QRadioButton>(peer()).setChecked(true);
}

}  // namespace platform
