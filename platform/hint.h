#pragma once

#include <QString>

namespace platform {

/// A text as a hint that shows each of its characters, and is broken into lines where it is long.
/// Without the tags the toolkit would show a plain text on one line, however long it is.
[[nodiscard]] inline QString hint(const QString& text) {
  if (text.trimmed().isEmpty()) return {};
  return "<p style='white-space:pre-wrap'>" + text.toHtmlEscaped() + "</p>";
}

}  // namespace platform
