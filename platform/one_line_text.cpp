#include "platform/one_line_text.h"

#include <QRegularExpression>

namespace platform {
namespace {

// The field's own limit counts an emoji as two.
std::size_t characters(const QString& text) {
  std::size_t count = 0;
  for (const QChar unit : text) count += unit.isLowSurrogate() ? 0 : 1;
  return count;
}

}  // namespace

QString on_one_line(QString text) {
  static const QRegularExpression last_breaks(R"([\r\n\t\x{2028}\x{2029}]+\z)");
  static const QRegularExpression breaks(R"([\r\n\t\x{2028}\x{2029}]+)");
  return text.remove(last_breaks).replace(breaks, " ");
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
