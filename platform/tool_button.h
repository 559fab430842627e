#pragma once

#include <QToolButton>

namespace platform {

/// A toolbar's button. A screen reader that presses it gets its answer at once, also where the
/// press opens a window.
class tool_button : public QToolButton {
 public:
  tool_button();
};

}  // namespace platform
