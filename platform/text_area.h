#pragma once

#include <QPlainTextEdit>

namespace platform {

/// A field of several lines that gives back each character as it came: line ends of any kind, hard
/// blanks and control characters. A line end that the user makes is of the kind that the text has.
class text_area : public QPlainTextEdit {
 public:
  text_area();

  [[nodiscard]] QString text() const;
  /// Raises textChanged once.
  void set_text(const QString& text);
  [[nodiscard]] bool is_empty() const;

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int usual_end_ = 0;
};

}  // namespace platform
