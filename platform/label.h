#pragma once

#include "platform/control.h"

namespace platform {

/// A line of text, or several. With a buddy it names that control to screen readers.
class Label : public Control {
 public:
  Label(Form& form, std::string name, std::string caption = {}, Control* buddy = nullptr);

  void set_caption(const std::string& caption);

 private:
  std::unique_ptr<native> make() override;
  void tie() override;

  std::string caption_;
  Control* buddy_;
};

}  // namespace platform
