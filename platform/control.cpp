#include "platform/control.h"

#include <utility>

#include "platform/form.h"
#include "platform/toolkit_peer.h"

namespace platform {

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
  form_.add(*this);
}

Control::~Control() = default;

toolkit_peer& Control::peer() {
  if (!peer_) form_.load();
  return *peer_;
}

void Control::set_enabled(bool enabled) {
  peer().widget->setEnabled(enabled);
}

void Control::set_focus() {
  peer().widget->setFocus(Qt::OtherFocusReason);
}

void Control::set_accessible_name(const std::string& text) {
  peer().widget->setAccessibleName(to_toolkit(text));
}

}  // namespace platform
