#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/control.h"

namespace platform {

/// A drop-down list that takes no typed text. Starts without a choice.
class ComboBox : public Control {
 public:
  ComboBox(Form& form, std::string name);

  /// Raised when a choice is made, by the user or by select().
  std::function<void()> on_click;

  void Clear();
  void AddItem(std::string_view text);
  /// The chosen item's text as it was added, empty without a choice.
  [[nodiscard]] std::string text();
  /// Chooses the first item with exactly this text; leaves no choice if there is none.
  void select(std::string_view text);

 private:
  std::unique_ptr<toolkit_peer> make() override;
};

}  // namespace platform
