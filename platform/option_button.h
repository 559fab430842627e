#pragma once

#include <functional>

#include "platform/control.h"

namespace platform {

/// One member of the form's group of options: selecting it takes the selection from the others.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string name, std::string caption);

  /// Raised when a member that was not selected becomes so, by the user or by select().
  std::function<void()> on_click;

  [[nodiscard]] bool selected();
  void select();

 private:
  std::unique_ptr<toolkit_peer> make() override;

  std::string caption_;
};

}  // namespace platform
