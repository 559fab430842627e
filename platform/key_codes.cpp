#include "platform/key_codes.h"

#include <QKeyEvent>

namespace platform {

int key_code(const QKeyEvent& key) {
  const int code = key.key();
  const bool keypad = key.modifiers().testFlag(Qt::KeypadModifier);
  if (code >= Qt::Key_0 && code <= Qt::Key_9) return keypad ? 96 + code - Qt::Key_0 : code;
  if (code >= Qt::Key_A && code <= Qt::Key_Z) return code;
  if (code >= Qt::Key_F1 && code <= Qt::Key_F24) return 112 + code - Qt::Key_F1;
  return -1;
}

int shift_state(Qt::KeyboardModifiers held) {
  return (held.testFlag(Qt::ShiftModifier) ? 1 : 0) + (held.testFlag(Qt::ControlModifier) ? 2 : 0) +
         (held.testFlag(Qt::AltModifier) ? 4 : 0);
}

}  // namespace platform
