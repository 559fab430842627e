#include "controls/grid/cell_editor.h"

#include <QLineEdit>
#include <QToolTip>
#include <algorithm>
#include <limits>

#include "platform/one_line_text.h"
#include "platform/toolkit_peer.h"
#include "store/text.h"

namespace ta_vorlumine {

using platform::from_toolkit;
using platform::to_toolkit;

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
  limited_ = new platform::one_line_text(line_);
  line_->setObjectName("cell_editor");
  line_->setFrame(false);
  line_->setFocusPolicy(Qt::ClickFocus);
  line_->setMaxLength(std::numeric_limits<int>::max());
  line_->setValidator(limited_);
  line_->hide();
  limited_->on_cut = [this] {
    QToolTip::showText(line_->mapToGlobal(QPoint(0, line_->height())),
                       QString("%1文字を超えた部分は入りませんでした。").arg(limited_->limit),
                       line_);
  };
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
