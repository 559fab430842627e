#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/control.h"
#include "platform/image_list.h"

namespace platform {

/// A row of buttons with pictures. Buttons are named by key, or by position from 1, separators
/// counted; Alt and the number of a button among the buttons press it.
class Toolbar : public Control {
 public:
  struct button {
    std::string key;
    std::string caption;
    std::string description;  ///< tells apart, to screen readers and as a hint, what captions don't
  };
  static button separator() { return {}; }

  Toolbar(Form& form, std::string name, const ImageList& pictures, std::vector<button> buttons);

  std::function<void(const std::string& key, int position)> on_button_click;
  /// Takes the keyboard from a button that is switched off while it has it; else the next button
  /// would, and what was meant for the one before might close the window.
  Control* rest = nullptr;

  // For whatever offers the same commands in another place.

  [[nodiscard]] const button& described(std::string_view key) const;
  [[nodiscard]] std::string picture(std::string_view key) const;  ///< its resource path
  [[nodiscard]] bool is_on(std::string_view key);
  /// As a click on the button.
  void press(std::string_view key);

  void enable(std::string_view key, bool enabled);
  void enable(int position, bool enabled);

 private:
  std::unique_ptr<toolkit_peer> make() override;
  [[nodiscard]] int position_of(std::string_view key) const;

  const ImageList& pictures_;
  std::vector<button> buttons_;
};

}  // namespace platform
