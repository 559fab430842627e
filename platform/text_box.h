#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/control.h"

class QString;

namespace platform {

/// A text field without a length limit.
class TextBox : public Control {
 public:
  enum class lines { one, one_tall, several };

  TextBox(Form& form, std::string name, lines box_lines = lines::one);

  std::function<void()> on_change;

  /// UTF-8, what set_text() got byte for byte unless the user has changed it: bytes that are no
  /// text are only shown otherwise. What an input method has half composed is taken first.
  [[nodiscard]] std::string text();
  /// Takes nothing from the input method, so that on_change may ask it in the midst of composing.
  [[nodiscard]] bool is_empty();
  /// Raises on_change if the text differs.
  void set_text(std::string_view text);

 private:
  std::unique_ptr<toolkit_peer> make() override;
  void changed();
  void set_line(const QString& text);

  lines lines_;
  std::string given_;  // by set_text()
};

}  // namespace platform
