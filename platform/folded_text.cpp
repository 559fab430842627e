#include "platform/folded_text.h"

namespace platform {

QString folded(const QString& text) {
  QString plain = text.normalized(QString::NormalizationForm_KC).toCaseFolded();
  for (QChar& letter : plain) {
    const bool hiragana = letter >= QChar(0x3041) && letter <= QChar(0x3096);
    if (hiragana) letter = QChar(letter.unicode() + 0x60);
  }
  return plain;
}

}  // namespace platform
