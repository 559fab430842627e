#pragma once

#include "platform/control.h"

namespace platform {

/// A text on the form. With a buddy it names that control to screen readers. A label of one or two
/// lines takes no more room whatever it shows, and tells the whole text as a hint.
class Label : public Control {
 public:
  enum class lines { as_needed, one, two };

  Label(Form& form, std::string name, std::string caption = {}, Control* buddy = nullptr,
        lines label_lines = lines::as_needed);

  void set_caption(const std::string& caption);

 private:
  std::unique_ptr<toolkit_peer> make() override;
  void tie() override;

  std::string caption_;
  Control* buddy_;
  lines lines_;
};

}  // namespace platform
