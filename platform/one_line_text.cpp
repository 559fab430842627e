#include "platform/one_line_text.h"

namespace platform {
namespace {

// The field's own limit counts an emoji as two.
std::size_t characters(const QString& text) {
  std::size_t count = 0;
  for (const QChar unit : text) count += unit.isLowSurrogate() ? 0 : 1;
  return count;
}

bool is_break(QChar unit) {
  return unit == '\r' || unit == '\n' || unit == '\t' || unit == QChar::LineSeparator ||
         unit == QChar::ParagraphSeparator;
}

}  // namespace

// Without a pattern: those of the toolkit find nothing in a text that has half an emoji.
QString on_one_line(QString text) {
  while (!text.isEmpty() && is_break(text.back())) text.chop(1);
  QString line;
  bool after_break = false;
  for (const QChar unit : text) {
    if (!is_break(unit)) line += unit;
    if (is_break(unit) && !after_break) line += ' ';
    after_break = is_break(unit);
  }
  return line;
}

QValidator::State one_line_text::validate(QString& text, int& cursor) const {
  QString before = on_one_line(text.left(cursor));
  const QString after = on_one_line(text.mid(cursor));
  const std::size_t length = characters(before) + characters(after);
  std::size_t cut = 0;
  for (; limit > 0 && length - cut > limit && !before.isEmpty(); ++cut) {
    before.chop(before.back().isLowSurrogate() ? 2 : 1);
  }
  text = before + after;
  cursor = static_cast<int>(before.size());
  if (cut > 1 && on_cut) on_cut();
  return Acceptable;
}

}  // namespace platform
