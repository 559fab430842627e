#pragma once

#include <QLayout>

#include "platform/layout.h"

namespace platform {

/// Turns a form's description of its window into the toolkit's layouts.
struct arrangement {
  [[nodiscard]] static QLayout* of(const box& body);

 private:
  static QLayout* line(const box& body);
  static QLayout* grid(const box& body);
};

}  // namespace platform
