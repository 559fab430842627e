#pragma once

#include <QValidator>
#include <cstddef>
#include <functional>

namespace platform {

/// The text without line breaks and tabs: those at its end go, such as a spreadsheet adds to a cell
/// that it copies, and those amid it become blanks.
[[nodiscard]] QString on_one_line(QString text);

/// Keeps a field that shows one line to one line, whatever is typed, pasted or dropped into it.
class one_line_text : public QValidator {
 public:
  using QValidator::QValidator;

  /// The most characters (code points) that the field takes, 0 for any number. What is too much is
  /// cut in front of the cursor, where it came in.
  std::size_t limit = 0;
  /// Raised when a text that came in at once was cut.
  std::function<void()> on_cut;

  State validate(QString& text, int& cursor) const override;
};

}  // namespace platform
