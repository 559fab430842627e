#include "controls/grid/cell_editor.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <QValidator>
#include <algorithm>
#include <limits>

#include "platform/toolkit_peer.h"
#include "store/text.h"

namespace ta_vorlumine {

using platform::from_toolkit;
using platform::to_toolkit;

/// The line editor's own limit counts emoji twice, so the text is cut here, where what was typed or
/// pasted ends: in front of the cursor.
class cell_editor::limited_text : public QValidator {
 public:
  using QValidator::QValidator;

  std::size_t limit = 0;

  State validate(QString& text, int& cursor) const override {
    // Cells copied from other programs bring a line break along, and would then match nothing.
    static const QRegularExpression breaks(R"([\r\n\t])");
    QString before = text.left(cursor).remove(breaks);
    const QString after = text.mid(cursor).remove(breaks);
    std::size_t length = count(before) + count(after);
    for (; limit > 0 && length > limit && !before.isEmpty(); --length) {
      before.chop(before.back().isLowSurrogate() ? 2 : 1);
    }
    text = before + after;
    cursor = static_cast<int>(before.size());
    return Acceptable;
  }

 private:
  static std::size_t count(const QString& text) {
    return ADODB::character_count(from_toolkit(text));
  }
};

class cell_editor::line_edit : public QLineEdit {
 public:
  line_edit(cell_editor& editor, QWidget& parent) : QLineEdit(&parent), editor_(editor) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!editor_.on_key(*event)) QLineEdit::keyPressEvent(event);
  }

 private:
  cell_editor& editor_;
};

cell_editor::cell_editor(QWidget& parent) : line_(new line_edit(*this, parent)) {
  limited_ = new limited_text(line_);
  line_->setObjectName("cell_editor");
  line_->setFrame(false);
  line_->setFocusPolicy(Qt::ClickFocus);
  line_->setMaxLength(std::numeric_limits<int>::max());
  line_->setValidator(limited_);
  line_->hide();
}

void cell_editor::start(std::string_view text, int limit) {
  const std::size_t length = ADODB::character_count(text);
  limited_->limit = limit == 0 ? 0 : std::max(static_cast<std::size_t>(limit), length);
  set_text(text);
}

std::string cell_editor::text() const {
  const std::string text = from_toolkit(line_->text());
  return text == shown_ ? given_ : text;
}

void cell_editor::set_text(std::string_view text) {
  given_ = text;
  line_->setText(to_toolkit(text));
  shown_ = from_toolkit(line_->text());
}

}  // namespace ta_vorlumine
