#include "platform/text_area.h"

#include <QKeyEvent>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTextBlock>

namespace platform {
namespace {

// The toolkit starts a new block at each of these and forgets which it was. A block's user state
// keeps it: the place in this list of the end behind the block, -1 for one that the user has made.
const QStringList& line_ends() {
  static const QStringList ends{"\n", "\r\n", "\r", QChar(0x2029), QChar(0xfdd0), QChar(0xfdd1)};
  return ends;
}

const QRegularExpression& any_line_end() {
  static const QRegularExpression pattern(R"(\r\n|[\n\r\x{2029}\x{fdd0}\x{fdd1}])");
  return pattern;
}

}  // namespace

text_area::text_area() {
  setTabChangesFocus(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

QString text_area::text() const {
  QString text;
  text.reserve(document()->characterCount());
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    text += block.text();
    if (block == document()->lastBlock()) break;
    text += line_ends().at(block.userState() < 0 ? usual_end_ : block.userState());
  }
  return text;
}

void text_area::set_text(const QString& text) {
  {
    const QSignalBlocker until_complete(this);
    setPlainText(text);
    usual_end_ = 0;
    QTextBlock block = document()->begin();
    for (auto found = any_line_end().globalMatch(text); found.hasNext(); block = block.next()) {
      const auto end = static_cast<int>(line_ends().indexOf(found.next().captured()));
      if (block == document()->begin()) usual_end_ = end;
      block.setUserState(end);
    }
  }
  emit textChanged();
}

bool text_area::is_empty() const {
  return document()->isEmpty();
}

// Two lines are enough on a small screen, which also has to hold the buttons below.
QSize text_area::minimumSizeHint() const {
  const QSize usual = QPlainTextEdit::minimumSizeHint();
  const int around = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  return usual.boundedTo({usual.width(), 2 * fontMetrics().lineSpacing() + around});
}

// Shift+Enter would put in a character of its own that looks like a line end.
void text_area::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::InsertLineSeparator))
    return QPlainTextEdit::keyPressEvent(event);
  textCursor().insertBlock();
  ensureCursorVisible();
}

}  // namespace platform
