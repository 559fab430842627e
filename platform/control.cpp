#include "platform/control.h"

#include <utility>

#include "platform/form.h"
#include "platform/native.h"

namespace platform {

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
  form_.add(*this);
}

Control::~Control() = default;

native& Control::peer() {
  if (!native_) form_.load();
  return *native_;
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
