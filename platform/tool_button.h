#pragma once

#include <QToolButton>

namespace platform {

/// A toolbar's button, which Enter presses, too. Its shortcut presses it before the next key
/// comes: the toolkit would do that a moment later, for what the next key has chosen by then. A
/// screen reader that presses it gets its answer at once, also where the press opens a window.
class tool_button : public QToolButton {
 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

/// Tells screen readers of the tool buttons, as long as it lives.
class told_tool_buttons {
 public:
  told_tool_buttons();
  told_tool_buttons(const told_tool_buttons&) = delete;
  told_tool_buttons& operator=(const told_tool_buttons&) = delete;
  ~told_tool_buttons();
};

}  // namespace platform
