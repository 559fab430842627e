#pragma once

#include <functional>
#include <string>
#include <string_view>

class QKeyEvent;
class QLineEdit;
class QWidget;

namespace platform {
class one_line_text;
}

namespace ta_vorlumine {

/// The text editor of a grid's cells, hidden while none is in edit. Its widget belongs to `parent`.
class cell_editor {
 public:
  explicit cell_editor(QWidget& parent);

  /// Sees each key before the editor; true if it has dealt with it.
  std::function<bool(QKeyEvent&)> on_key;

  /// Puts `text` (UTF-8) into the editor, with the cursor behind it. `limit`: the most characters
  /// (code points) it then takes, 0 for any number. A text that is longer already stays whole, but
  /// cannot grow. Line breaks and tabs never enter.
  void start(std::string_view text, int limit);
  /// As it was set, byte for byte, unless the user has changed it.
  [[nodiscard]] std::string text() const;
  void set_text(std::string_view text);

  [[nodiscard]] QLineEdit& line() const { return *line_; }

 private:
  class line_edit;

  platform::one_line_text* limited_;
  QLineEdit* line_;
  std::string given_;  // by set_text()
  std::string shown_;  // for it
};

}  // namespace ta_vorlumine
