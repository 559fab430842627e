#pragma once

#include <functional>

#include "platform/control.h"

namespace platform {

class CommandButton : public Control {
 public:
  /// `standard`: Enter in a field of the form presses the button.
  enum class role { plain, standard };

  CommandButton(Form& form, std::string name, std::string caption, role button_role = role::plain);

  std::function<void()> on_click;

 private:
  std::unique_ptr<toolkit_peer> make() override;

  std::string caption_;
  role role_;
};

}  // namespace platform
